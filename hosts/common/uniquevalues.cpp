// SPDX-License-Identifier: GPL-2.0-or-later
// Gathering by hash: numbers and dates by their value, texts by their units.
#include "hosts/common/uniquevalues.h"

#include <unordered_set>
#include <vector>

#include "hosts/common/hostfailure.h"

namespace brelmon::host {
namespace {

/// Tells whether a value was not there before.
class Seen {
 public:
  bool Add(const Value& value) {
    if (const Text* text = value.If<Text>()) return texts_.insert(*text).second;
    if (const Date* date = value.If<Date>()) return dates_.insert(date->Serial).second;
    const double number = value.ToDouble(0);
    return numbers_.insert(number == 0 ? 0.0 : number).second;  // -0 is 0
  }

 private:
  std::unordered_set<Text> texts_;
  std::unordered_set<double> numbers_, dates_;
};

class ValueWalk : public IEnumValue {
 public:
  explicit ValueWalk(std::shared_ptr<const std::vector<Value>> values)
      : values_(std::move(values)) {}
  Value Next() override { return next_ < values_->size() ? (*values_)[next_++] : Value(); }

 private:
  std::shared_ptr<const std::vector<Value>> values_;
  std::size_t next_ = 0;
};

class UniqueValuesOfField : public IDataStatistics {
 public:
  void SetField(const Text& name) override {
    field_ = name;
    values_.reset();
  }
  void SetCursor(const Ref<ICursor>& cursor) override {
    cursor_ = cursor;
    values_.reset();
  }
  Ref<IEnumValue> UniqueValues() override { return New<ValueWalk>(Gathered()); }
  std::int32_t UniqueValueCount() override { return static_cast<std::int32_t>(Gathered()->size()); }

 private:
  const std::shared_ptr<std::vector<Value>>& Gathered() {
    if (!values_) values_ = Gather();
    return values_;
  }

  std::shared_ptr<std::vector<Value>> Gather() {
    const Ref<ICursorFields> fields = cursor_.As<ICursorFields>();
    const std::int32_t index = fields ? fields->FindField(field_) : -1;
    if (index < 0)
      Fail(failure::kInvalidCall, "The cursor has no field \"" + ToUtf8(field_) + "\".");
    fields->ReadOnly(index);
    auto values = std::make_shared<std::vector<Value>>();
    Seen seen;
    while (const Ref<IRowBuffer> row = cursor_->NextRow()) {
      Value value = row->Value(index);
      if (!value.IsNull() && !value.IsEmpty() && seen.Add(value)) {
        values->push_back(std::move(value));
      }
    }
    return values;
  }

  Text field_;
  Ref<ICursor> cursor_;
  std::shared_ptr<std::vector<Value>> values_;
};

}  // namespace

Ref<IDataStatistics> NewDataStatistics() { return New<UniqueValuesOfField>(); }

}  // namespace brelmon::host
