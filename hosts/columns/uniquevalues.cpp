// SPDX-License-Identifier: GPL-2.0-or-later
// Gathering by hash, a column at a time.
#include "hosts/columns/uniquevalues.h"

#include <cmath>

#include "hosts/columns/cursor.h"
#include "hosts/columns/valueindex.h"
#include "hosts/columns/values.h"
#include "hosts/common/hostfailure.h"

namespace brelmon::columns {
namespace {

/// Distinct values of one field.
class UniqueOnes {
 public:
  explicit UniqueOnes(const Field& field) : field_(field) {}

  void Add(const Batch& batch, const Column& column) {
    for (const std::uint32_t row : batch.Live) {
      if (column.IsNull(row)) continue;
      if (!column.Texts.empty()) {
        texts_.Of(column.Texts[row]);
      } else if (!column.Wholes.empty()) {
        numbers_.Of(static_cast<double>(column.Wholes[row]));
      } else if (!column.Reals.empty()) {
        AddReal(column.Reals[row]);
      } else if (!column.Moments.empty()) {
        numbers_.Of(DateOf(column.Moments[row]).Serial + 0.0);
      } else {
        ValueAt(column, field_, row);  // fails with its reason
      }
    }
  }
  std::size_t Count() const {
    return texts_.Values().size() + numbers_.Values().size() + (nan_ ? 1 : 0);
  }
  Value At(std::size_t index) const {
    if (index < texts_.Values().size()) return FromUtf8(texts_.Values()[index]);
    if (index >= numbers_.Values().size()) return std::nan("");
    const double number = numbers_.Values()[index];
    if (field_.Stored == Storage::Moment) return Date{number};
    // Beyond 2^53 whole numbers are doubles in any case.
    return field_.Stored == Storage::Whole ? WholeNumber(static_cast<std::int64_t>(number))
                                           : Value(number);
  }

 private:
  void AddReal(double number) {
    if (std::isnan(number)) {
      nan_ = true;
    } else {
      numbers_.Of(number + 0.0);  // -0 is 0
    }
  }

  Field field_;
  TextIndex texts_;
  NumberIndex numbers_;
  bool nan_ = false;
};

class ValueWalk : public IEnumValue {
 public:
  explicit ValueWalk(std::shared_ptr<const UniqueOnes> values) : values_(std::move(values)) {}
  Value Next() override { return next_ < values_->Count() ? values_->At(next_++) : Value(); }

 private:
  std::shared_ptr<const UniqueOnes> values_;
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
  std::int32_t UniqueValueCount() override {
    return static_cast<std::int32_t>(Gathered()->Count());
  }

 private:
  const std::shared_ptr<UniqueOnes>& Gathered() {
    if (!values_) values_ = Gather();
    return values_;
  }

  std::shared_ptr<UniqueOnes> Gather() {
    const Ref<IColumnCursor> cursor = cursor_.As<IColumnCursor>(0);
    const std::int32_t index = cursor ? cursor->FindField(field_) : -1;
    if (index < 0) {
      host::Fail(failure::kInvalidCall, "The cursor has no field \"" + ToUtf8(field_) + "\".");
    }
    const auto field = static_cast<std::size_t>(index);
    auto gathered = std::make_shared<UniqueOnes>(cursor->Fields()[field]);
    const auto rows = cursor->TakeValues(field);
    while (const auto batch = rows->Next()) gathered->Add(*batch, batch->Columns[field]);
    return gathered;
  }

  Text field_;
  Ref<ICursor> cursor_;
  std::shared_ptr<UniqueOnes> values_;
};

}  // namespace

Ref<IDataStatistics> NewDataStatistics() { return New<UniqueValuesOfField>(); }

}  // namespace brelmon::columns
