// SPDX-License-Identifier: GPL-2.0-or-later
// The selected rows of one table, by identifier.
#pragma once

#include "hosts/columns/rows.h"

namespace brelmon::document {

/// Always tells of the present selection. Cursors keep the one that they were opened on.
class RowSelection : public ISelectionSet {
 public:
  class Owner {
   public:
    virtual ~Owner() = default;
    virtual Ref<ICursor> SearchSelected(const Ref<IQueryFilter>& filter, bool recycling,
                                        std::shared_ptr<const columns::RowIds> ids) = 0;
  };

  explicit RowSelection(Owner& owner) : owner_(&owner), ids_(std::make_shared<columns::RowIds>()) {}
  void OwnerIsGone() { owner_ = nullptr; }

  void Combine(columns::RowIds rows, SelectionMethod method);
  std::int32_t Count() override { return static_cast<std::int32_t>(ids_->size()); }
  const std::shared_ptr<const columns::RowIds>& Ids() const { return ids_; }
  /// Selected rows that are also under the table's definition and the filter.
  Ref<ICursor> Search(const Ref<IQueryFilter>& filter, bool recycling) override;

 private:
  Owner* owner_;
  std::shared_ptr<const columns::RowIds> ids_;
};

}  // namespace brelmon::document
