// SPDX-License-Identifier: GPL-2.0-or-later
// Set arithmetic over sorted identifiers.
#include "hosts/headless/tableselection.h"

#include <algorithm>
#include <iterator>

#include "hosts/common/hostfailure.h"

namespace brelmon::headless {

void RowSelection::Combine(RowIds rows, SelectionMethod method) {
  if (method == SelectionMethod::New) {
    ids_ = std::make_shared<RowIds>(std::move(rows));
    return;
  }
  RowIds result;
  const auto into = std::back_inserter(result);
  const RowIds& now = *ids_;
  switch (method) {
    case SelectionMethod::Add:
      std::set_union(now.begin(), now.end(), rows.begin(), rows.end(), into);
      break;
    case SelectionMethod::Subtract:
      std::set_difference(now.begin(), now.end(), rows.begin(), rows.end(), into);
      break;
    case SelectionMethod::And:
      std::set_intersection(now.begin(), now.end(), rows.begin(), rows.end(), into);
      break;
    case SelectionMethod::Xor:
      std::set_symmetric_difference(now.begin(), now.end(), rows.begin(), rows.end(), into);
      break;
    default:
      host::Fail(failure::kInvalidCall);
  }
  ids_ = std::make_shared<RowIds>(std::move(result));
}

Ref<ICursor> RowSelection::Search(const Ref<IQueryFilter>& filter, bool recycling) {
  if (owner_ == nullptr) {
    host::Fail(failure::kNoSuchObject, "The table of this selection is no longer there.");
  }
  return owner_->SearchSelected(filter, recycling, ids_);
}

}  // namespace brelmon::headless
