// SPDX-License-Identifier: GPL-2.0-or-later
// The present selection, and cursors over it.
#include "hosts/document/tableselection.h"

#include "hosts/common/hostfailure.h"

namespace brelmon::document {

void RowSelection::Combine(columns::RowIds rows, SelectionMethod method) {
  ids_ = std::make_shared<columns::RowIds>(columns::Combined(*ids_, std::move(rows), method));
}

Ref<ICursor> RowSelection::Search(const Ref<IQueryFilter>& filter, bool recycling) {
  if (owner_ == nullptr) {
    host::Fail(failure::kNoSuchObject, "The table of this selection is no longer there.");
  }
  return owner_->SearchSelected(filter, recycling, ids_);
}

}  // namespace brelmon::document
