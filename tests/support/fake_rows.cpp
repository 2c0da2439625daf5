// SPDX-License-Identifier: GPL-2.0-or-later
// Rows in memory, with just enough of a query language for the tools' own clauses.
#include <algorithm>
#include <optional>

#include "tests/support/fake_map.h"

namespace brelmon::test {
namespace {

/// Recursive descent over: or := and (OR and)*; and := not (AND not)*; not := NOT not | (or) |
/// comparison. Anything else refuses.
class Clause {
 public:
  Clause(const Text& text, const FakeRows& table, const Row& row)
      : text_(text), table_(table), row_(row) {}
  bool Evaluate() {
    const bool result = Or();
    Blanks();
    if (at_ != text_.size()) Refuse();
    return result;
  }

 private:
  [[noreturn]] static void Refuse() { host::Fail(failure::kRefused, "The source can't parse it"); }
  void Blanks() {
    while (at_ < text_.size() && text_[at_] == u' ') ++at_;
  }
  bool Take(TextView token) {
    Blanks();
    if (!EqualNoCase(TextView(text_).substr(at_, token.size()), token)) return false;
    at_ += token.size();
    return true;
  }
  bool Or() {
    bool result = And();
    while (Take(u"OR")) result = And() || result;
    return result;
  }
  bool And() {
    bool result = Not();
    while (Take(u"AND")) result = Not() && result;
    return result;
  }
  bool Not() {
    if (Take(u"NOT")) return !Not();
    if (Take(u"(")) {
      const bool result = Or();
      if (!Take(u")")) Refuse();
      return result;
    }
    return Comparison();
  }
  bool Comparison() {
    const Value left = FieldValue();
    for (const TextView op : {u"<>", u">=", u"<=", u"=", u">", u"<"}) {
      if (Take(op)) return Holds(left, op, Operand());
    }
    Refuse();
  }
  Text Until(char16_t mark) {
    const auto end = text_.find(mark, at_);
    if (end == Text::npos) Refuse();
    Text token = text_.substr(at_, end - at_);
    at_ = end + 1;
    return token;
  }
  Text Word() {
    Blanks();
    const auto end = std::min(text_.find_first_of(u" <>=()", at_), text_.size());
    Text word = text_.substr(at_, end - at_);
    at_ = end;
    return word;
  }
  Value FieldValue() {
    const Text name = Take(u"\"") ? Until(u'"') : Take(u"[") ? Until(u']') : Word();
    for (std::size_t i = 0; i < table_.fields.size(); ++i) {
      if (EqualNoCase(table_.fields[i].name, name)) return row_.at(i);
    }
    Refuse();
  }
  Value Operand() {
    if (Take(u"'")) return Until(u'\'');
    const auto number = ParseNumber(Word());
    if (!number) Refuse();
    return *number;
  }
  static bool Holds(const Value& left, TextView op, const Value& right) {
    if (left.IsNull()) return false;
    int order = 0;
    if (const Text* text = right.If<Text>()) {
      order = left.ToText().compare(*text);
    } else {
      const double difference = left.ToDouble() - right.ToDouble();
      order = difference < 0 ? -1 : difference > 0 ? 1 : 0;
    }
    if (op == u"=") return order == 0;
    if (op == u"<>") return order != 0;
    if (op == u">") return order > 0;
    if (op == u">=") return order >= 0;
    return op == u"<" ? order < 0 : order <= 0;
  }

  const Text& text_;
  const FakeRows& table_;
  const Row& row_;
  std::size_t at_ = 0;
};

Text ClauseOf(const Ref<IQueryFilter>& filter) { return filter ? filter->WhereClause : Text(); }

class RowBuffer : public IRowBuffer {
 public:
  explicit RowBuffer(const Row& row) : row_(&row) {}
  brelmon::Value Value(std::int32_t index) override { return Of(*row_, index); }

 private:
  const Row* row_;
};

class Cursor : public FakeCursor {
 public:
  Cursor(Ref<FakeRows> table, std::vector<std::size_t> numbers)
      : table_(std::move(table)), numbers_(std::move(numbers)) {}
  std::int32_t FindField(const Text& name) override { return table_->FindField(name); }
  Ref<IRowBuffer> NextRow() override {
    if (next_ == numbers_.size()) return {};
    return New<RowBuffer>(table_->rows[numbers_[next_++]]);
  }

 private:
  Ref<FakeRows> table_;
  std::vector<std::size_t> numbers_;
  std::size_t next_ = 0;
};

class Selection : public ISelectionSet {
 public:
  explicit Selection(Ref<FakeRows> table) : table_(std::move(table)) {}
  std::int32_t Count() override { return static_cast<std::int32_t>(table_->selected.size()); }
  Ref<ICursor> Search(const Ref<IQueryFilter>& filter, bool) override {
    auto numbers = table_->Matching(ClauseOf(filter));
    std::erase_if(numbers, [&](std::size_t n) { return table_->selected.count(n) == 0; });
    return table_->CursorOver(std::move(numbers));
  }

 private:
  Ref<FakeRows> table_;
};

class FakeField : public IField, public IFieldInfo {
 public:
  explicit FakeField(FakeFieldSpec spec) : spec_(std::move(spec)) {}
  Text Name() override { return spec_.name; }
  FieldType Type() override { return spec_.type; }
  Text Alias() override { return spec_.alias.empty() ? spec_.name : spec_.alias; }
  bool Visible() override { return spec_.visible; }

 private:
  FakeFieldSpec spec_;
};

class FakeWorkspace : public IWorkspace, public IWorkspaceFactory {
 public:
  explicit FakeWorkspace(Text description) : description_(std::move(description)) {}
  Ref<IWorkspaceFactory> WorkspaceFactory() override { return New<FakeWorkspace>(description_); }
  bool Exists() override { return true; }
  Text WorkspaceDescription(bool plural) override { return description_ + (plural ? u"s" : u""); }
  bool IsWorkspace(const Text&) override { return true; }
  Ref<IWorkspace> OpenFromFile(const Text&, std::int32_t) override {
    return New<FakeWorkspace>(description_);
  }

 private:
  Text description_;
};

class FieldList : public IFields {
 public:
  explicit FieldList(Ref<FakeRows> table) : table_(std::move(table)) {}
  std::int32_t FieldCount() override { return table_->FieldCount(); }
  Ref<IField> Field(std::int32_t index) override { return table_->Field(index); }

 private:
  Ref<FakeRows> table_;
};

}  // namespace

void FakeRows::Reach() const {
  if (gone) host::Fail(failure::kNoSuchObject, "The layer is gone");
  if (!valid) host::Fail(failure::kFileNotFound, "The layer's data can't be reached");
}

std::vector<std::size_t> FakeRows::Matching(const Text& where) const {
  Reach();
  std::vector<std::size_t> numbers;
  const Row blank(fields.size(), Value(0.0));
  for (const Text* clause : {&definition, &where}) {
    if (!clause->empty()) Clause(*clause, *this, blank).Evaluate();  // refused on no rows too
  }
  for (std::size_t n = 0; n < rows.size(); ++n) {
    if ((definition.empty() || Clause(definition, *this, rows[n]).Evaluate()) &&
        (where.empty() || Clause(where, *this, rows[n]).Evaluate())) {
      numbers.push_back(n);
    }
  }
  return numbers;
}

Ref<ICursor> FakeRows::CursorOver(std::vector<std::size_t> numbers) {
  return New<Cursor>(Ref<FakeRows>(shared_from_this()), std::move(numbers));
}

Ref<ICursor> FakeRows::Search(const Ref<IQueryFilter>& filter, bool recycling) {
  Note(log, "Search [" + ToUtf8(ClauseOf(filter)) + "] " + (recycling ? "recycling" : "keeping"));
  if (filter && !filter->SubFields.empty() && FindField(filter->SubFields) < 0) {
    host::Fail(failure::kRefused, "There is no such field");
  }
  return CursorOver(Matching(ClauseOf(filter)));
}

std::int32_t FakeRows::RowCount(const Ref<IQueryFilter>& filter) {
  return static_cast<std::int32_t>(Matching(ClauseOf(filter)).size());
}

void FakeRows::SetDefinitionExpression(const Text& expression) {
  const Text before = std::exchange(definition, expression);
  try {
    Matching({});
  } catch (const Failure&) {
    definition = before;
    throw;
  }
  Note(log, "Definition " + ToUtf8(name) + " [" + ToUtf8(expression) + "]");
}

Ref<ISelectionSet> FakeRows::SelectionSet() {
  if (!offersSelection) return {};
  return New<Selection>(Ref<FakeRows>(shared_from_this()));
}

void FakeRows::Select(const Text& where, SelectionMethod method, bool justOne) {
  std::set<std::size_t> hits;
  for (const std::size_t n : Matching(where)) {
    hits.insert(n);
    if (justOne) break;
  }
  std::set<std::size_t> result = method == SelectionMethod::New ? hits : selected;
  for (std::size_t n = 0; n < rows.size(); ++n) {
    const bool hit = hits.count(n) != 0;
    const bool was = selected.count(n) != 0;
    if (method == SelectionMethod::Add && hit) result.insert(n);
    if (method == SelectionMethod::Subtract && hit) result.erase(n);
    if (method == SelectionMethod::And && !hit) result.erase(n);
    if (method == SelectionMethod::Xor && hit && was) result.erase(n);
    if (method == SelectionMethod::Xor && hit && !was) result.insert(n);
  }
  selected = result;
}

void FakeRows::SelectRows(const Ref<IQueryFilter>& filter, SelectionMethod method, bool justOne) {
  Select(ClauseOf(filter), method, justOne);
  Note(log, "SelectRows " + ToUtf8(name) + " " + std::to_string(static_cast<int>(method)));
}

void FakeRows::Clear() {
  selected.clear();
  Note(log, "Clear " + ToUtf8(name));
}

void FakeRows::SelectionChanged() { Note(log, "SelectionChanged " + ToUtf8(name)); }

Ref<IField> FakeRows::Field(std::int32_t index) { return New<FakeField>(Of(fields, index)); }
Ref<IFieldInfo> FakeRows::FieldInfo(std::int32_t index) {
  return New<FakeField>(Of(fields, index));
}

std::int32_t FakeRows::FindField(const Text& fieldName) {
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (EqualNoCase(fields[i].name, fieldName)) return static_cast<std::int32_t>(i);
  }
  return -1;
}

Ref<IFields> FakeRows::Fields() { return New<FieldList>(Ref<FakeRows>(shared_from_this())); }
Ref<IWorkspace> FakeRows::Workspace() { return New<FakeWorkspace>(sourceDescription); }
Ref<IObject> FakeRows::FullName() { return New<UID>(name); }

void FakeLayer::SelectFeatures(const Ref<IQueryFilter>& filter, SelectionMethod method,
                               bool justOne) {
  Note(log, "SelectFeatures " + ToUtf8(name) + " " + std::to_string(static_cast<int>(method)));
  Reach();
  if (const auto spatial = filter.TryAs<ISpatialFilter>()) {
    if (spatial->GeometryField != shapeField) host::Fail(failure::kRefused, "No such shape field");
    const auto shape = spatial->Geometry.As<FakeElement::Shape>();
    if (method == SelectionMethod::New) selected.clear();
    selected.insert(shape->touches.begin(), shape->touches.end());
    return;
  }
  Select(ClauseOf(filter), method, justOne);
}

Text FakeStandaloneTable::Name() {
  if (bound_) return bound_.As<FakeRows>()->name;
  if (unbound) host::Fail(failure::kObjectNotSet);
  return name;
}

bool FakeStandaloneTable::Valid() {
  if (bound_) return bound_.As<FakeRows>()->valid;
  return valid && !gone && !unbound;
}

Ref<ITable> FakeStandaloneTable::Table() {
  if (bound_ || unbound) return bound_;
  return Ref<FakeStandaloneTable>(
      std::static_pointer_cast<FakeStandaloneTable>(shared_from_this()));
}

void FakeStandaloneTable::SetTable(const Ref<ITable>& table) {
  if (bound_ || !unbound) host::Fail(failure::kInvalidCall, "The table is bound already");
  bound_ = table;
}

}  // namespace brelmon::test
