// SPDX-License-Identifier: GPL-2.0-or-later
// A batch is used again as soon as nobody holds it.
#include "hosts/data/rowfiller.h"

namespace brelmon::data {
namespace {
constexpr std::size_t kRows = 1024;
}

std::shared_ptr<columns::Batch> RowFiller::Next() {
  if (ended_) return nullptr;
  Start();
  Filled& batch = *batch_;
  while (batch.Rows < kRows) {
    const std::optional<std::int64_t> id = NextRow();
    if (!id) {
      ended_ = true;
      break;
    }
    for (const std::size_t field : fields_) {
      Take(field, batch.buffers[field], batch.Rows, batch.texts);
    }
    batch.Ids[batch.Rows] = *id;
    batch.Live.push_back(static_cast<std::uint32_t>(batch.Rows++));
  }
  if (batch.Rows == 0) return nullptr;
  for (const std::size_t field : fields_) batch.Columns[field] = batch.buffers[field].View();
  return batch_;
}

void RowFiller::Start() {
  if (!batch_ || batch_.use_count() > 1) batch_ = std::make_shared<Filled>();
  batch_->Rows = 0;
  batch_->Ids.resize(kRows);
  batch_->Live.clear();
  batch_->texts.Clear();
  batch_->Columns.assign(source_->Fields().size(), {});
  batch_->buffers.resize(source_->Fields().size());
  for (const std::size_t field : fields_) {
    batch_->buffers[field].Start(source_->Fields()[field].Stored, kRows);
  }
}

}  // namespace brelmon::data
