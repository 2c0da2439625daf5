// SPDX-License-Identifier: GPL-2.0-or-later
// Cursors with a reading state of their own.
#include <cpl_error.h>
#include <cpl_string.h>

#include <algorithm>
#include <optional>

#include "hosts/common/hostfailure.h"
#include "hosts/columns/querytokens.h"
#include "hosts/common/uniquevalues.h"
#include "hosts/headless/dbfrows.h"

namespace brelmon::headless {
namespace {

/// Which fields are read; the others are empty.
using ReadFields = std::vector<bool>;

class Row : public IRowBuffer {
 public:
  Row(std::shared_ptr<VectorSource> source, std::shared_ptr<const ReadFields> read)
      : source_(std::move(source)), read_(std::move(read)) {}
  void Take(OGRFeatureUniquePtr row) { row_ = std::move(row); }

  brelmon::Value Value(std::int32_t index) override {
    const auto& fields = source_->Fields();
    if (index < 0 || static_cast<std::size_t>(index) >= fields.size()) {
      host::Fail(failure::kSubscript);
    }
    const auto at = static_cast<std::size_t>(index);
    if (!(*read_)[at]) return {};
    return ReadValue(*source_, *row_, fields[at]);
  }

 private:
  std::shared_ptr<VectorSource> source_;
  std::shared_ptr<const ReadFields> read_;
  OGRFeatureUniquePtr row_;
};

/// Few rows of many are fetched one by one.
bool IsFew(VectorSource& source, const Text& clause, const RowIds* only) {
  return only && columns::IsBlank(clause) &&
         static_cast<GIntBig>(only->size()) * 8 < source.TotalRows();
}

class Cursor : public ICursor, public host::ICursorFields {
 public:
  Cursor(std::shared_ptr<VectorSource> source, RowRequest request, bool recycling,
         std::shared_ptr<const RowIds> only)
      : source_(std::move(source)),
        request_(std::move(request)),
        recycling_(recycling),
        only_(std::move(only)) {
    rows_.emplace(OpenRows(*source_, request_));
    NoteFields();
    byId_ =
        IsFew(*source_, request_.clause, only_.get()) && (*rows_)->TestCapability(OLCRandomRead);
  }

  Ref<IRowBuffer> NextRow() override {
    OGRFeatureUniquePtr row = byId_ ? NextById() : NextInOrder();
    if (!row) return {};
    if (!recycling_ || !row_) row_ = std::make_shared<Row>(source_, read_);
    row_->Take(std::move(row));
    return Ref<IRowBuffer>(row_);
  }

  std::int32_t FindField(const Text& name) override { return source_->FindField(name); }

  void ReadOnly(std::int32_t index) override {
    if (started_) return;
    request_.allFields = false;
    request_.fields = {index};
    recycling_ = true;
    rows_.reset();  // its handle is taken again
    rows_.emplace(OpenRows(*source_, request_));
    NoteFields();
  }

 private:
  void NoteFields() {
    auto read = std::make_shared<ReadFields>(source_->Fields().size(), request_.allFields);
    for (const std::int32_t field : request_.fields)
      (*read)[static_cast<std::size_t>(field)] = true;
    read_ = std::move(read);
  }

  OGRFeatureUniquePtr NextById() {
    started_ = true;
    while (next_ < only_->size()) {
      OGRFeatureUniquePtr row((*rows_)->GetFeature((*only_)[next_++]));
      if (row) return row;
    }
    return nullptr;
  }

  OGRFeatureUniquePtr NextInOrder() {
    if (!started_) CPLErrorReset();
    started_ = true;
    while (!ended_) {
      OGRFeatureUniquePtr row((*rows_)->GetNextFeature());
      if (!row) {
        ended_ = true;
        if (ReadingBroke(*source_, request_.clause)) {
          host::Fail(failure::kDeviceIo, CPLGetLastErrorMsg());
        }
      } else if (!only_ || IsAmongOnly(row->GetFID())) {
        return row;
      }
    }
    return nullptr;
  }

  /// Rows come in ascending order as a rule, so the place is where the last one was found.
  bool IsAmongOnly(GIntBig id) {
    if (next_ > 0 && (next_ > only_->size() || (*only_)[next_ - 1] >= id)) next_ = 0;
    next_ = static_cast<std::size_t>(
        std::lower_bound(only_->begin() + static_cast<std::ptrdiff_t>(next_), only_->end(), id) -
        only_->begin());
    return next_ < only_->size() && (*only_)[next_] == id;
  }

  std::shared_ptr<VectorSource> source_;
  RowRequest request_;
  bool recycling_, byId_ = false, started_ = false, ended_ = false;
  std::shared_ptr<const RowIds> only_;
  std::size_t next_ = 0;
  std::optional<VectorSource::Handle> rows_;
  std::shared_ptr<const ReadFields> read_;
  std::shared_ptr<Row> row_;
};

std::vector<std::int32_t> FieldsNamed(const VectorSource& source, const Text& subFields) {
  std::vector<std::int32_t> fields;
  const CPLStringList names(CSLTokenizeString2(ToUtf8(subFields).c_str(), ",",
                                               CSLT_STRIPLEADSPACES | CSLT_STRIPENDSPACES),
                            TRUE);
  for (int i = 0; i < names.size(); ++i) {
    fields.push_back(source.FindField(FromUtf8(names[i])));
    if (fields.back() < 0) {
      host::Fail(failure::kRefused,
                 std::string("The query was refused: there is no field \"") + names[i] + "\".");
    }
  }
  return fields;
}

}  // namespace

Ref<ICursor> NewCursor(const std::shared_ptr<VectorSource>& source, const Text& clause,
                       const Text& subFields, bool recycling, std::shared_ptr<const RowIds> only) {
  RowRequest request;
  request.clause = clause;
  request.allFields = subFields.empty() || subFields == u"*";
  if (!request.allFields) request.fields = FieldsNamed(*source, subFields);
  const bool few = IsFew(*source, clause, only.get());
  const auto plain = few ? Ref<ICursor>() : NewDbfCursor(source, request, recycling, only);
  if (plain) return plain;
  return New<Cursor>(source, std::move(request), recycling, std::move(only));
}

}  // namespace brelmon::headless
