// SPDX-License-Identifier: GPL-2.0-or-later
// Gathering by hash: numbers and dates by their value, texts by their units.
#include "hosts/common/uniquevalues.h"

#include <algorithm>
#include <cstdint>
#include <deque>
#include <unordered_set>
#include <vector>

#include "hosts/common/hostfailure.h"

namespace brelmon::host {
namespace {

using Values = std::deque<Value>;

/// Values, each once.
class UniqueOnes {
 public:
  void Add(Value value) {
    if (const Text* text = value.If<Text>()) {
      if (IsNewText(*text)) values_->push_back(std::move(value));
    } else if (const Date* date = value.If<Date>()) {
      if (dates_.insert(date->Serial).second) values_->push_back(std::move(value));
    } else {
      const double number = value.ToDouble(0) + 0.0;  // -0 is 0
      if (numbers_.insert(number).second) values_->push_back(std::move(value));
    }
  }
  const std::shared_ptr<Values>& All() const { return values_; }

 private:
  /// Half a hash, and the number (from 1) of the value that has it; 0 is free. Half a million texts
  /// are found by it without a look at another text.
  using Slot = std::uint64_t;
  static constexpr std::uint64_t kNumber = 0xFFFFFFFF;

  /// If so, its slot is taken for the value that is added next.
  bool IsNewText(const Text& text) {
    if (values_->size() * 2 >= slots_.size()) Grow();
    const std::uint64_t hash = std::hash<Text>()(text);
    const std::uint64_t half = hash & ~kNumber;
    Slot* slot = &slots_[PlaceOf(half)];
    while (*slot != 0) {
      const auto number = static_cast<std::size_t>(*slot & kNumber);
      if ((*slot & ~kNumber) == half && *(*values_)[number - 1].If<Text>() == text) return false;
      if (++slot == slots_.data() + slots_.size()) slot = slots_.data();
    }
    *slot = half | (values_->size() + 1);
    return true;
  }
  void Grow() {
    std::vector<Slot> old(std::max<std::size_t>(slots_.size() * 2, 64));
    old.swap(slots_);
    for (const Slot slot : old) {
      if (slot == 0) continue;
      std::size_t place = PlaceOf(slot & ~kNumber);
      while (slots_[place] != 0) place = (place + 1) % slots_.size();
      slots_[place] = slot;
    }
  }
  /// The slots are a power of two, at most 2^32.
  std::size_t PlaceOf(std::uint64_t half) const { return (half >> 32) & (slots_.size() - 1); }

  std::shared_ptr<Values> values_ = std::make_shared<Values>();
  std::vector<Slot> slots_;
  std::unordered_set<double> numbers_, dates_;
};

class ValueWalk : public IEnumValue {
 public:
  explicit ValueWalk(std::shared_ptr<const Values> values) : values_(std::move(values)) {}
  Value Next() override { return next_ < values_->size() ? (*values_)[next_++] : Value(); }

 private:
  std::shared_ptr<const Values> values_;
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
  const std::shared_ptr<Values>& Gathered() {
    if (!values_) values_ = Gather();
    return values_;
  }

  std::shared_ptr<Values> Gather() {
    const Ref<ICursorFields> fields = cursor_.As<ICursorFields>();
    const std::int32_t index = fields ? fields->FindField(field_) : -1;
    if (index < 0)
      Fail(failure::kInvalidCall, "The cursor has no field \"" + ToUtf8(field_) + "\".");
    fields->ReadOnly(index);
    UniqueOnes gathered;
    while (const Ref<IRowBuffer> row = cursor_->NextRow()) {
      Value value = row->Value(index);
      if (!value.IsNull() && !value.IsEmpty()) gathered.Add(std::move(value));
    }
    return gathered.All();
  }

  Text field_;
  Ref<ICursor> cursor_;
  std::shared_ptr<Values> values_;
};

}  // namespace

Ref<IDataStatistics> NewDataStatistics() { return New<UniqueValuesOfField>(); }

}  // namespace brelmon::host
