// SPDX-License-Identifier: GPL-2.0-or-later
// Rows are places in a batch.
#include "hosts/columns/cursor.h"

#include <algorithm>
#include <numeric>

#include "hosts/columns/emptyvalue.h"
#include "hosts/columns/values.h"
#include "hosts/common/hostfailure.h"

namespace brelmon::columns {
namespace {

/// The rows of a request, and the one that is at hand. Columns that nobody asked for by name are
/// read from the first time on that somebody looks at them: most loops look at one.
class Reading {
 public:
  Reading(std::shared_ptr<IRowSource> source, RowRequest request, Text table)
      : source_(std::move(source)), request_(std::move(request)), table_(std::move(table)) {}

  /// False at the end, for ever.
  bool Next() {
    if (ended_) return false;
    if (!rows_) rows_ = source_->Read(request_);
    while (!batch_ || ++at_ >= batch_->Live.size()) {
      batch_.reset();  // the reader's again
      batch_ = rows_->Next();
      at_ = static_cast<std::size_t>(-1);
      ++batches_;
      if (!batch_) return End();
    }
    return true;
  }
  const std::shared_ptr<Batch>& AtHand() const { return batch_; }
  std::size_t Row() const { return batch_->Live[at_]; }
  const std::vector<Field>& Fields() const { return source_->Fields(); }

  Value ValueOf(std::size_t field, bool unlimited) {
    if (unlimited && std::count(request_.Fields.begin(), request_.Fields.end(), field) == 0) {
      ReadAlso(field);
    }
    return ended_ ? Value() : Known(*batch_, field, Row());
  }
  /// A value of a batch, whichever is at hand.
  Value Known(const Batch& batch, std::size_t field, std::size_t row) const {
    Value value = ValueAt(batch.Columns[field], Fields()[field], row);
    if (value.IsNull()) {
      const auto record = batch.Ids.empty() ? std::nullopt : std::optional(batch.Ids[row]);
      NoteEmptyValue(table_, FromUtf8(Fields()[field].Name), record);
    }
    return value;
  }

 private:
  bool End() {
    ended_ = true;
    rows_.reset();
    return false;
  }
  /// The same batches once more, up to the present one.
  void ReadAlso(std::size_t field) {
    request_.Fields.push_back(field);
    if (ended_) return;
    batch_.reset();
    rows_ = source_->Read(request_);
    for (std::size_t skipped = 0; skipped < batches_; ++skipped) {
      batch_.reset();
      batch_ = rows_->Next();
      if (!batch_) host::Fail(failure::kDeviceIo, "The rows changed while they were read.");
    }
    if (at_ >= batch_->Live.size()) {
      host::Fail(failure::kDeviceIo, "The rows changed while they were read.");
    }
  }

  std::shared_ptr<IRowSource> source_;
  RowRequest request_;
  Text table_;
  std::unique_ptr<IBatchReader> rows_;
  std::shared_ptr<Batch> batch_;
  std::size_t batches_ = 0, at_ = 0;  // read so far; place among the live rows
  bool ended_ = false;
};

std::size_t FieldAt(const std::vector<Field>& fields, std::int32_t index) {
  if (index < 0 || static_cast<std::size_t>(index) >= fields.size()) {
    host::Fail(failure::kSubscript);
  }
  return static_cast<std::size_t>(index);
}

/// The one row of a recycling cursor.
class RowAtHand : public IRowBuffer {
 public:
  RowAtHand(std::shared_ptr<Reading> reading, bool unlimited)
      : reading_(std::move(reading)), unlimited_(unlimited) {}
  brelmon::Value Value(std::int32_t index) override {
    return reading_->ValueOf(FieldAt(reading_->Fields(), index), unlimited_);
  }

 private:
  std::shared_ptr<Reading> reading_;
  bool unlimited_;
};

/// A row that may be kept, and its batch with it.
class KeptRow : public IRowBuffer {
 public:
  explicit KeptRow(std::shared_ptr<Reading> reading)
      : reading_(std::move(reading)), batch_(reading_->AtHand()), row_(reading_->Row()) {}
  brelmon::Value Value(std::int32_t index) override {
    return reading_->Known(*batch_, FieldAt(reading_->Fields(), index), row_);
  }

 private:
  std::shared_ptr<Reading> reading_;
  std::shared_ptr<const Batch> batch_;
  std::size_t row_;
};

class Cursor : public ICursor, public IColumnCursor {
 public:
  Cursor(std::shared_ptr<IRowSource> source, RowRequest request, bool unlimited, bool recycling,
         Text table)
      : source_(std::move(source)),
        request_(std::move(request)),
        table_(std::move(table)),
        unlimited_(unlimited),
        recycling_(recycling) {}

  Ref<IRowBuffer> NextRow() override {
    if (!reading_) Start();
    if (!reading_->Next()) return {};
    if (!recycling_) return New<KeptRow>(reading_);
    if (!row_) row_ = New<RowAtHand>(reading_, unlimited_);
    return row_;
  }

  std::int32_t FindField(const Text& name) override {
    return columns::FindField(source_->Fields(), name);
  }
  const std::vector<Field>& Fields() override { return source_->Fields(); }

  std::unique_ptr<IBatchReader> TakeValues(std::size_t field) override {
    if (reading_) host::Fail(failure::kInvalidCall, "Rows of this cursor were read already.");
    request_.Fields = {field};
    auto rows = source_->ReadValues(request_);
    reading_ =
        std::make_shared<Reading>(source_, RowRequest{{}, {}, std::make_shared<RowIds>()}, table_);
    return rows;
  }

 private:
  void Start() {
    if (unlimited_ && !recycling_) {
      request_.Fields.resize(source_->Fields().size());
      std::iota(request_.Fields.begin(), request_.Fields.end(), std::size_t{0});
    }
    reading_ = std::make_shared<Reading>(source_, request_, table_);
  }

  std::shared_ptr<IRowSource> source_;
  RowRequest request_;
  Text table_;
  bool unlimited_, recycling_;
  std::shared_ptr<Reading> reading_;
  Ref<IRowBuffer> row_;
};

std::vector<std::size_t> FieldsNamed(const std::vector<Field>& fields, const Text& subFields) {
  std::vector<std::size_t> named;
  for (std::size_t at = 0; at <= subFields.size();) {
    const std::size_t comma = std::min(subFields.find(u',', at), subFields.size());
    const Text name = Trim(TextView(subFields).substr(at, comma - at));
    const std::int32_t field = FindField(fields, name);
    if (field < 0) {
      host::Fail(failure::kRefused,
                 "The query was refused: there is no field \"" + ToUtf8(name) + "\".");
    }
    named.push_back(static_cast<std::size_t>(field));
    at = comma + 1;
  }
  return named;
}

}  // namespace

Ref<ICursor> NewCursor(std::shared_ptr<IRowSource> source, RowRequest request,
                       const Text& subFields, bool recycling, Text table) {
  const bool unlimited = subFields.empty() || subFields == u"*";
  if (!unlimited) request.Fields = FieldsNamed(source->Fields(), subFields);
  request.WithIds = false;
  return New<Cursor>(std::move(source), std::move(request), unlimited, recycling, std::move(table));
}

}  // namespace brelmon::columns
