// SPDX-License-Identifier: GPL-2.0-or-later
// The items of a toolbar, as its definition tells them.
#pragma once

#include <vector>

#include "platform/component.h"

namespace brelmon::host {

struct BarItem {
  Text ClassName;
  bool BeginsGroup = false;
};

inline std::vector<BarItem> ItemsOf(IToolBarDef& bar) {
  class Told : public virtual IItemDef {
   public:
    void SetID(const Text& progId) override {
      item.ClassName = progId.substr(progId.rfind(u'.') + 1);
    }
    void SetGroup(bool begins) override { item.BeginsGroup = begins; }
    void SetSubType(std::int32_t) override {}
    BarItem item;
  };
  std::vector<BarItem> items;
  for (std::int32_t position = 0; position < bar.ItemCount(); ++position) {
    const auto told = New<Told>();
    bar.GetItemInfo(position, told);
    items.push_back(told->item);
  }
  return items;
}

}  // namespace brelmon::host
