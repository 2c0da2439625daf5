// SPDX-License-Identifier: GPL-2.0-or-later
// Whole numbers as long as all are whole; one real number makes all of them real.
#include "hosts/columns/numbers.h"

#include <algorithm>
#include <climits>

#include "hosts/columns/rows.h"

namespace brelmon::columns {
namespace {

using Kind = ClauseNode::Kind;
using RowList = std::vector<std::uint32_t>;

/// Numbers of some rows; those of one of the two kinds are there.
struct Numbers {
  std::vector<std::int64_t> wholes;
  std::vector<double> reals;
  std::vector<std::uint8_t> nulls;  // empty where there is none
  bool IsNull(std::size_t i) const { return !nulls.empty() && nulls[i] != 0; }
};

class Number {
 public:
  explicit Number(bool real) : real_(real) {}
  virtual ~Number() = default;
  virtual Numbers Of(const Batch& batch, const RowList& rows) const = 0;
  bool IsReal() const { return real_; }

  /// The same as real numbers.
  Numbers Reals(const Batch& batch, const RowList& rows) const {
    Numbers numbers = Of(batch, rows);
    if (real_) return numbers;
    numbers.reals.assign(numbers.wholes.begin(), numbers.wholes.end());
    numbers.wholes.clear();
    return numbers;
  }

 private:
  bool real_;
};
using NumberPtr = std::unique_ptr<Number>;

class Constant : public Number {
 public:
  explicit Constant(const ClauseNode& node)
      : Number(node.kind == Kind::Real), whole_(node.whole), value_(node.real) {}
  Numbers Of(const Batch&, const RowList& rows) const override {
    Numbers numbers;
    if (IsReal()) numbers.reals.assign(rows.size(), value_);
    if (!IsReal()) numbers.wholes.assign(rows.size(), whole_);
    return numbers;
  }

 private:
  std::int64_t whole_;
  double value_;
};

class FieldNumber : public Number {
 public:
  FieldNumber(std::size_t field, bool real) : Number(real), field_(field) {}
  Numbers Of(const Batch& batch, const RowList& rows) const override {
    const Column& column = batch.Columns[field_];
    Numbers numbers;
    if (IsReal()) Take(column.Reals, rows, numbers.reals);
    if (!IsReal()) Take(column.Wholes, rows, numbers.wholes);
    if (!column.Nulls.empty()) Take(column.Nulls, rows, numbers.nulls);
    return numbers;
  }

 private:
  template <class From, class To>
  static void Take(const From& from, const RowList& rows, To& to) {
    to.resize(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) to[i] = from[rows[i]];
  }
  std::size_t field_;
};

class RecordNumber : public Number {
 public:
  RecordNumber() : Number(false) {}
  Numbers Of(const Batch& batch, const RowList& rows) const override {
    Numbers numbers;
    for (const std::uint32_t row : rows) numbers.wholes.push_back(batch.Ids[row]);
    return numbers;
  }
};

class Reckoned : public Number {
 public:
  Reckoned(Kind kind, NumberPtr one, NumberPtr other)
      : Number(one->IsReal() || other->IsReal()),
        kind_(kind),
        one_(std::move(one)),
        other_(std::move(other)) {}

  Numbers Of(const Batch& batch, const RowList& rows) const override {
    Numbers left = IsReal() ? one_->Reals(batch, rows) : one_->Of(batch, rows);
    const Numbers right = IsReal() ? other_->Reals(batch, rows) : other_->Of(batch, rows);
    if (left.nulls.empty()) left.nulls = right.nulls;
    for (std::size_t i = 0; i < rows.size(); ++i) {
      if (right.IsNull(i)) left.nulls[i] = 1;
      if (IsReal()) left.reals[i] = Real(left.reals[i], right.reals[i]);
      if (!IsReal() && !Whole(left.wholes[i], right.wholes[i])) {
        left.nulls.resize(rows.size());
        left.nulls[i] = 1;
      }
    }
    return left;
  }

 private:
  double Real(double left, double right) const {
    switch (kind_) {
      case Kind::Add:
        return left + right;
      case Kind::Subtract:
        return left - right;
      case Kind::Multiply:
        return left * right;
      default:
        return right == 0 ? static_cast<double>(INT_MAX) : left / right;
    }
  }
  /// False for what 64 bits can't hold, which is no number.
  bool Whole(std::int64_t& left, std::int64_t right) const {
    switch (kind_) {
      case Kind::Add:
        return !__builtin_add_overflow(left, right, &left);
      case Kind::Subtract:
        return !__builtin_sub_overflow(left, right, &left);
      case Kind::Multiply:
        return !__builtin_mul_overflow(left, right, &left);
      case Kind::Modulo:
        left = right == 0 ? INT_MAX : right == -1 ? 0 : left % right;
        return true;
      default:
        break;
    }
    if (right == -1) return !__builtin_sub_overflow(std::int64_t{0}, left, &left);
    left = right == 0 ? INT_MAX : left / right;
    return true;
  }
  Kind kind_;
  NumberPtr one_, other_;
};

NumberPtr NumberOf(const ClauseNode& node, const std::vector<Field>& fields,
                   std::vector<std::size_t>& tested) {
  switch (node.kind) {
    case Kind::Whole:
    case Kind::Real:
      return std::make_unique<Constant>(node);
    case Kind::Name: {
      const Text name = FromUtf8(node.text);
      const std::int32_t index = FindField(fields, name);
      if (index < 0) return EqualNoCase(name, u"FID") ? std::make_unique<RecordNumber>() : nullptr;
      const Field& field = fields[static_cast<std::size_t>(index)];
      const bool number = field.Stored == Storage::Whole || field.Stored == Storage::Real;
      if (!number || field.Logical) return nullptr;
      tested.push_back(static_cast<std::size_t>(index));
      return std::make_unique<FieldNumber>(tested.back(), field.Stored == Storage::Real);
    }
    case Kind::Add:
    case Kind::Subtract:
    case Kind::Multiply:
    case Kind::Divide:
    case Kind::Modulo: {
      NumberPtr one = NumberOf(*node.parts[0], fields, tested);
      NumberPtr other = one ? NumberOf(*node.parts[1], fields, tested) : nullptr;
      if (!other) return nullptr;
      // What remains of a real number is a matter of taste.
      if (node.kind == Kind::Modulo && (one->IsReal() || other->IsReal())) return nullptr;
      return std::make_unique<Reckoned>(node.kind, std::move(one), std::move(other));
    }
    default:
      return nullptr;
  }
}

template <class Value>
bool Holds(Kind kind, Value left, Value right) {
  switch (kind) {
    case Kind::Equal:
      return left == right;
    case Kind::NotEqual:
      return left != right;
    case Kind::Less:
      return left < right;
    default:
      return left <= right;
  }
}

class NumberCondition : public Condition {
 public:
  NumberCondition(Kind kind, NumberPtr one, NumberPtr other)
      : kind_(kind), one_(std::move(one)), other_(std::move(other)) {}
  void Decide(const Batch& batch, const RowList& rows, Answers& answers) const override {
    const bool real = one_->IsReal() || other_->IsReal();
    const Numbers left = real ? one_->Reals(batch, rows) : one_->Of(batch, rows);
    const Numbers right = real ? other_->Reals(batch, rows) : other_->Of(batch, rows);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      const bool holds = !left.IsNull(i) && !right.IsNull(i) &&
                         (real ? Holds(kind_, left.reals[i], right.reals[i])
                               : Holds(kind_, left.wholes[i], right.wholes[i]));
      answers[i] = holds ? Answer::True : Answer::False;
    }
  }

 private:
  Kind kind_;
  NumberPtr one_, other_;
};

/// A field against one number of its own kind.
template <class Value, class Values>
class FieldAgainst : public Condition {
 public:
  FieldAgainst(Kind kind, std::size_t field, Values values, Value value, bool turned)
      : kind_(kind), field_(field), values_(values), value_(value), turned_(turned) {}
  void Decide(const Batch& batch, const RowList& rows, Answers& answers) const override {
    const Value value = value_;
    switch (kind_) {
      case Kind::Equal:
        return Test(batch, rows, answers, [=](Value each) { return each == value; });
      case Kind::NotEqual:
        return Test(batch, rows, answers, [=](Value each) { return each != value; });
      case Kind::Less:
        if (turned_) return Test(batch, rows, answers, [=](Value each) { return value < each; });
        return Test(batch, rows, answers, [=](Value each) { return each < value; });
      default:
        if (turned_) return Test(batch, rows, answers, [=](Value each) { return value <= each; });
        return Test(batch, rows, answers, [=](Value each) { return each <= value; });
    }
  }

 private:
  template <class Holds>
  void Test(const Batch& batch, const RowList& rows, Answers& answers, Holds holds) const {
    const Column& column = batch.Columns[field_];
    const Value* values = (column.*values_).data();
    for (std::size_t i = 0; i < rows.size(); ++i) {
      answers[i] = static_cast<Answer>(holds(values[rows[i]]));
    }
    if (column.Nulls.empty()) return;
    for (std::size_t i = 0; i < rows.size(); ++i) {
      if (column.Nulls[rows[i]] != 0) answers[i] = Answer::False;
    }
  }
  Kind kind_;
  std::size_t field_;
  Values values_;
  Value value_;
  bool turned_;
};

/// Null where it isn't that simple.
ConditionPtr OneAgainstConstant(const ClauseNode& node, const std::vector<Field>& fields,
                                std::vector<std::size_t>& tested) {
  const bool turned = node.parts[1]->kind == Kind::Name;
  const ClauseNode& name = *node.parts[turned ? 1 : 0];
  const ClauseNode& value = *node.parts[turned ? 0 : 1];
  const bool constant = value.kind == Kind::Whole || value.kind == Kind::Real;
  const std::int32_t found =
      name.kind == Kind::Name && constant ? FindField(fields, FromUtf8(name.text)) : -1;
  if (found < 0) return nullptr;
  const auto index = static_cast<std::size_t>(found);
  const Field& field = fields[index];
  if (field.Logical) return nullptr;
  if (field.Stored == Storage::Real) {
    const double real = value.kind == Kind::Real ? value.real : static_cast<double>(value.whole);
    tested.push_back(index);
    return std::make_unique<FieldAgainst<double, decltype(&Column::Reals)>>(
        node.kind, index, &Column::Reals, real, turned);
  }
  if (field.Stored != Storage::Whole || value.kind != Kind::Whole) return nullptr;
  tested.push_back(index);
  return std::make_unique<FieldAgainst<std::int64_t, decltype(&Column::Wholes)>>(
      node.kind, index, &Column::Wholes, value.whole, turned);
}

/// In a list, or within two bounds.
class AmongNumbers : public Condition {
 public:
  AmongNumbers(NumberPtr value, bool range, bool real, std::vector<std::int64_t> wholes,
               std::vector<double> reals)
      : value_(std::move(value)),
        range_(range),
        real_(real),
        wholes_(std::move(wholes)),
        reals_(std::move(reals)) {}
  void Decide(const Batch& batch, const RowList& rows, Answers& answers) const override {
    const Numbers values = real_ ? value_->Reals(batch, rows) : value_->Of(batch, rows);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      const bool holds = !values.IsNull(i) && (real_ ? Holds(values.reals[i], reals_)
                                                     : Holds(values.wholes[i], wholes_));
      answers[i] = holds ? Answer::True : Answer::False;
    }
  }

 private:
  template <class Value>
  bool Holds(Value value, const std::vector<Value>& among) const {
    if (range_) return value >= among[0] && value <= among[1];
    return std::find(among.begin(), among.end(), value) != among.end();
  }
  NumberPtr value_;
  bool range_, real_;
  std::vector<std::int64_t> wholes_;
  std::vector<double> reals_;
};

}  // namespace

ConditionPtr CompareNumbers(const ClauseNode& node, const std::vector<Field>& fields,
                            std::vector<std::size_t>& tested) {
  if (auto simple = OneAgainstConstant(node, fields, tested)) return simple;
  NumberPtr one = NumberOf(*node.parts[0], fields, tested);
  NumberPtr other = one ? NumberOf(*node.parts[1], fields, tested) : nullptr;
  if (!other) return nullptr;
  return std::make_unique<NumberCondition>(node.kind, std::move(one), std::move(other));
}

ConditionPtr ListOrRangeOfNumbers(const ClauseNode& node, const std::vector<Field>& fields,
                                  std::vector<std::size_t>& tested) {
  NumberPtr value = NumberOf(*node.parts[0], fields, tested);
  bool real = value && value->IsReal();
  for (std::size_t i = 1; i < node.parts.size(); ++i) {
    const Kind kind = node.parts[i]->kind;
    if (!value || (kind != Kind::Whole && kind != Kind::Real)) return nullptr;
    real = real || kind == Kind::Real;
  }
  if (!value) return nullptr;
  std::vector<std::int64_t> wholes;
  std::vector<double> reals;
  for (std::size_t i = 1; i < node.parts.size(); ++i) {
    const ClauseNode& part = *node.parts[i];
    wholes.push_back(part.whole);
    reals.push_back(part.kind == Kind::Real ? part.real : static_cast<double>(part.whole));
  }
  return std::make_unique<AmongNumbers>(std::move(value), node.kind == Kind::Between, real,
                                        std::move(wholes), std::move(reals));
}

}  // namespace brelmon::columns
