// SPDX-License-Identifier: GPL-2.0-or-later
// What can be said of rows whatever their source is.
#include "hosts/columns/rows.h"

#include <algorithm>
#include <iterator>

#include "hosts/columns/querytokens.h"
#include "hosts/common/hostfailure.h"

namespace brelmon::columns {
namespace {

class ThinnedRows : public IBatchReader {
 public:
  ThinnedRows(std::unique_ptr<IBatchReader> rows, std::function<void(Batch&)> keep)
      : rows_(std::move(rows)), keep_(std::move(keep)) {}
  std::shared_ptr<Batch> Next() override {
    auto batch = rows_->Next();
    if (batch) keep_(*batch);
    return batch;
  }

 private:
  std::unique_ptr<IBatchReader> rows_;
  std::function<void(Batch&)> keep_;
};

}  // namespace

std::int64_t IRowSource::CountRows(const Text& clause) {
  std::int64_t count = 0;
  const auto rows = Read({{}, clause, nullptr});
  while (const auto batch = rows->Next()) count += static_cast<std::int64_t>(batch->Live.size());
  return count;
}

RowIds IRowSource::IdsOfRows(const Text& clause, bool justOne) {
  RowIds ids;
  const auto rows = Read({{}, clause, nullptr});
  while (const auto batch = rows->Next()) {
    for (const std::uint32_t row : batch->Live) {
      ids.push_back(batch->Ids[row]);
      if (justOne) return ids;
    }
  }
  if (!std::is_sorted(ids.begin(), ids.end())) std::sort(ids.begin(), ids.end());
  return ids;
}

std::int32_t FindField(const std::vector<Field>& fields, TextView name) {
  const auto hit = std::find_if(fields.begin(), fields.end(), [&](const Field& field) {
    return EqualNoCase(FromUtf8(field.Name), name);
  });
  return hit == fields.end() ? -1 : static_cast<std::int32_t>(hit - fields.begin());
}

Text BothClauses(TextView one, TextView other) {
  if (IsBlank(one)) return IsBlank(other) ? Text() : Text(other);
  if (IsBlank(other)) return Text(one);
  return u"(" + Text(one) + u") AND (" + Text(other) + u")";
}

void KeepOnly(Batch& batch, const RowIds& only) {
  // Rows come in ascending order as a rule, so the place is near where the last one was found.
  auto place = only.begin();
  std::int64_t last = 0;
  const auto gone = [&](std::uint32_t row) {
    const std::int64_t id = batch.Ids[row];
    const auto from = id >= last ? place : only.begin();
    place = std::lower_bound(from, only.end(), id);
    last = id;
    return place == only.end() || *place != id;
  };
  batch.Live.erase(std::remove_if(batch.Live.begin(), batch.Live.end(), gone), batch.Live.end());
}

std::unique_ptr<IBatchReader> Thinned(std::unique_ptr<IBatchReader> rows,
                                      std::function<void(Batch&)> keep) {
  return std::make_unique<ThinnedRows>(std::move(rows), std::move(keep));
}

RowIds Combined(const RowIds& now, RowIds rows, SelectionMethod method) {
  RowIds result;
  const auto combine = [&](const auto& operation) {
    operation(now.begin(), now.end(), rows.begin(), rows.end(), std::back_inserter(result));
    return std::move(result);
  };
  switch (method) {
    case SelectionMethod::New:
      return rows;
    case SelectionMethod::Add:
      return combine([](auto... of) { std::set_union(of...); });
    case SelectionMethod::Subtract:
      return combine([](auto... of) { std::set_difference(of...); });
    case SelectionMethod::And:
      return combine([](auto... of) { std::set_intersection(of...); });
    case SelectionMethod::Xor:
      return combine([](auto... of) { std::set_symmetric_difference(of...); });
  }
  host::Fail(failure::kInvalidCall);
}

}  // namespace brelmon::columns
