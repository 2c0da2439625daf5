// SPDX-License-Identifier: GPL-2.0-or-later
// Conditions: comparisons of numbers, texts and dates, lists, patterns, and their combinations.
#include "hosts/columns/conditions.h"

#include <algorithm>

#include "hosts/columns/numbers.h"
#include "hosts/columns/rows.h"

namespace brelmon::columns {
namespace {

using Kind = ClauseNode::Kind;
using RowList = std::vector<std::uint32_t>;

Answer Of(bool holds) { return holds ? Answer::True : Answer::False; }

class AndCondition : public Condition {
 public:
  AndCondition(ConditionPtr one, ConditionPtr other, bool both)
      : one_(std::move(one)), other_(std::move(other)), both_(both) {}
  /// What breaks one of them breaks both; where the second can't, it is asked for those rows alone
  /// that the first leaves open.
  void Decide(const Batch& batch, const RowList& rows, Answers& answers) const override {
    one_->Decide(batch, rows, answers);
    const bool all = other_->MayBreak();
    RowList open, places;
    for (std::size_t i = 0; i < rows.size() && !all; ++i) {
      if (answers[i] != Of(both_)) continue;
      open.push_back(rows[i]);
      places.push_back(static_cast<std::uint32_t>(i));
    }
    Answers second(all ? rows.size() : open.size());
    other_->Decide(batch, all ? rows : open, second);
    for (std::size_t i = 0; i < second.size(); ++i) {
      Answer& answer = answers[all ? i : places[i]];
      if (answer == Of(both_) || second[i] == Answer::Broken) {
        answer = answer == Answer::Broken ? answer : second[i];
      }
    }
  }
  bool MayBreak() const override { return one_->MayBreak() || other_->MayBreak(); }

 private:
  ConditionPtr one_, other_;
  bool both_;
};

class NotCondition : public Condition {
 public:
  explicit NotCondition(ConditionPtr of) : of_(std::move(of)) {}
  void Decide(const Batch& batch, const RowList& rows, Answers& answers) const override {
    of_->Decide(batch, rows, answers);
    for (Answer& answer : answers) {
      if (answer != Answer::Broken) answer = Of(answer == Answer::False);
    }
  }
  bool MayBreak() const override { return of_->MayBreak(); }

 private:
  ConditionPtr of_;
};

class IsNullCondition : public Condition {
 public:
  explicit IsNullCondition(std::size_t field) : field_(field) {}
  void Decide(const Batch& batch, const RowList& rows, Answers& answers) const override {
    const Column& column = batch.Columns[field_];
    for (std::size_t i = 0; i < rows.size(); ++i) answers[i] = Of(column.IsNull(rows[i]));
  }

 private:
  std::size_t field_;
};

/// `test` says of a value whether it holds; nulls never do.
template <class Values, class Test>
class ValueCondition : public Condition {
 public:
  ValueCondition(std::size_t field, Values values, Test test)
      : field_(field), values_(values), test_(std::move(test)) {}
  void Decide(const Batch& batch, const RowList& rows, Answers& answers) const override {
    const Column& column = batch.Columns[field_];
    const auto& values = column.*values_;
    for (std::size_t i = 0; i < rows.size(); ++i) {
      const std::uint32_t row = rows[i];
      answers[i] = column.IsNull(row) ? Answer::False : Of(test_(values[row]));
    }
  }

 private:
  std::size_t field_;
  Values values_;
  Test test_;
};

template <class Test>
ConditionPtr OfTexts(std::size_t field, Test test) {
  return std::make_unique<ValueCondition<decltype(&Column::Texts), Test>>(field, &Column::Texts,
                                                                          std::move(test));
}
/// A null among dates breaks the clause, as does what was read as a date and is none.
template <class Test>
class MomentCondition : public Condition {
 public:
  MomentCondition(std::size_t field, Test test) : field_(field), test_(std::move(test)) {}
  void Decide(const Batch& batch, const RowList& rows, Answers& answers) const override {
    const Column& column = batch.Columns[field_];
    for (std::size_t i = 0; i < rows.size(); ++i) {
      const Moment& value = column.Moments[rows[i]];
      answers[i] = column.IsNull(rows[i]) || !IsDate(value) ? Answer::Broken : Of(test_(value));
    }
  }
  bool MayBreak() const override { return true; }

 private:
  static bool IsDate(const Moment& value) {
    return value.Month >= 1 && value.Month <= 12 && value.Day >= 1 && value.Day <= 31;
  }
  std::size_t field_;
  Test test_;
};

template <class Test>
ConditionPtr OfMoments(std::size_t field, Test test) {
  return std::make_unique<MomentCondition<Test>>(field, std::move(test));
}

bool Holds(Kind kind, int order) {
  switch (kind) {
    case Kind::Equal:
      return order == 0;
    case Kind::NotEqual:
      return order != 0;
    case Kind::Less:
      return order < 0;
    default:
      return order <= 0;
  }
}

class Compiler {
 public:
  Compiler(const std::vector<Field>& fields, std::vector<std::size_t>& tested)
      : fields_(fields), tested_(tested) {}

  ConditionPtr Of(const ClauseNode& node) {
    switch (node.kind) {
      case Kind::And:
      case Kind::Or:
        return Joined(node);
      case Kind::Not: {
        ConditionPtr inner = Of(*node.parts[0]);
        return inner ? std::make_unique<NotCondition>(std::move(inner)) : nullptr;
      }
      case Kind::IsNull: {
        const Field* field = FieldOf(*node.parts[0]);
        return field && field->Stored != Storage::Other
                   ? std::make_unique<IsNullCondition>(IndexOf(field))
                   : nullptr;
      }
      case Kind::Equal:
      case Kind::NotEqual:
      case Kind::Less:
      case Kind::LessEqual:
        return Comparison(node);
      case Kind::Like:
      case Kind::ILike:
        return Pattern(node);
      case Kind::In:
      case Kind::Between:
        return ListOrRange(node);
      default:
        return nullptr;
    }
  }

 private:
  ConditionPtr Joined(const ClauseNode& node) {
    ConditionPtr one = Of(*node.parts[0]);
    ConditionPtr other = one ? Of(*node.parts[1]) : nullptr;
    if (!other) return nullptr;
    return std::make_unique<AndCondition>(std::move(one), std::move(other), node.kind == Kind::And);
  }

  const Field* FieldOf(const ClauseNode& node) {
    if (node.kind != Kind::Name) return nullptr;
    const std::int32_t index = FindField(fields_, FromUtf8(node.text));
    if (index < 0) return nullptr;
    tested_.push_back(static_cast<std::size_t>(index));
    return &fields_[static_cast<std::size_t>(index)];
  }
  std::size_t IndexOf(const Field* field) const {
    return static_cast<std::size_t>(field - fields_.data());
  }

  ConditionPtr Comparison(const ClauseNode& node) {
    const ClauseNode *left = node.parts[0].get(), *right = node.parts[1].get();
    if (left->kind == Kind::Text || right->kind == Kind::Text) {
      const bool turned = left->kind == Kind::Text;
      return WithText(node, turned ? *right : *left, turned ? left->text : right->text, turned);
    }
    return CompareNumbers(node, fields_, tested_);
  }

  ConditionPtr WithText(const ClauseNode& comparison, const ClauseNode& name,
                        const std::string& text, bool turned) {
    const Kind kind = comparison.kind;
    const Field* field = FieldOf(name);
    if (!field) return nullptr;
    if (field->Stored == Storage::Text) {
      // Texts that look like times are compared in a way of their own.
      if (text.find(':') != std::string::npos || text.ends_with("+00")) return nullptr;
      return OfTexts(IndexOf(field), [=](std::string_view value) {
        const int order = CompareTexts(value, text);
        return Holds(kind, turned ? -order : order);
      });
    }
    Moment moment;
    // A constant that is written first, or unequal, is compared as a text.
    if (field->Stored != Storage::Moment || turned != comparison.turned || kind == Kind::NotEqual ||
        !ReadMoment(text, moment)) {
      return nullptr;
    }
    return OfMoments(IndexOf(field), [=](const Moment& value) {
      const int order = CompareMoments(value, moment);
      return Holds(kind, turned ? -order : order);
    });
  }

  ConditionPtr Pattern(const ClauseNode& node) {
    const Field* field = FieldOf(*node.parts[0]);
    const bool texts = std::all_of(node.parts.begin() + 1, node.parts.end(),
                                   [](const auto& part) { return part->kind == Kind::Text; });
    if (!field || field->Stored != Storage::Text || !texts) return nullptr;
    const bool anyCase = node.kind == Kind::ILike;
    const std::string pattern = node.parts[1]->text;
    char escape = 0;
    if (node.parts.size() > 2) {
      if (node.parts[2]->text.size() != 1) return nullptr;
      escape = node.parts[2]->text[0];
    }
    if (escape == 0 && pattern.size() > 1 && pattern.find_first_of("%_") == pattern.size() - 1 &&
        pattern.back() == '%') {
      const std::string start = pattern.substr(0, pattern.size() - 1);
      return OfTexts(IndexOf(field), [=](std::string_view value) {
        return value.size() >= start.size() &&
               AreSame(value.substr(0, start.size()), start, anyCase);
      });
    }
    return OfTexts(IndexOf(field),
                   [=](std::string_view value) { return IsLike(value, pattern, escape, anyCase); });
  }

  ConditionPtr ListOrRange(const ClauseNode& node) {
    const Field* field = FieldOf(*node.parts[0]);
    const bool texts = std::all_of(node.parts.begin() + 1, node.parts.end(),
                                   [](const auto& part) { return part->kind == Kind::Text; });
    if (!texts) return ListOrRangeOfNumbers(node, fields_, tested_);
    if (!field || field->Stored != Storage::Text) return nullptr;
    std::vector<std::string> values;
    for (std::size_t i = 1; i < node.parts.size(); ++i) values.push_back(node.parts[i]->text);
    if (node.kind == Kind::Between) {
      return OfTexts(IndexOf(field), [values](std::string_view value) {
        return CompareTexts(value, values[0]) >= 0 && CompareTexts(value, values[1]) <= 0;
      });
    }
    return OfTexts(IndexOf(field), [values](std::string_view value) {
      return std::any_of(values.begin(), values.end(),
                         [&](const std::string& each) { return AreSame(value, each, true); });
    });
  }

  const std::vector<Field>& fields_;
  std::vector<std::size_t>& tested_;
};

}  // namespace

ConditionPtr CompileCondition(const ClauseNode& node, const std::vector<Field>& fields,
                              std::vector<std::size_t>& tested) {
  ConditionPtr condition = Compiler(fields, tested).Of(node);
  std::sort(tested.begin(), tested.end());
  tested.erase(std::unique(tested.begin(), tested.end()), tested.end());
  return condition;
}

}  // namespace brelmon::columns
