// SPDX-License-Identifier: GPL-2.0-or-later
// The bar's items as its definition tells them.
#pragma once

#include <vector>

#include "platform/component.h"

namespace brelmon::host {

struct BarItem {
  Text ProgId;
  bool Group = false;  // begins one
};

inline std::vector<BarItem> ItemsOf(const Ref<IToolBarDef>& definition) {
  struct Answer : IItemDef {
    void SetID(const Text& progId) override { item.ProgId = progId; }
    void SetGroup(bool begins) override { item.Group = begins; }
    void SetSubType(std::int32_t) override {}
    BarItem item;
  };
  std::vector<BarItem> items;
  for (std::int32_t at = 0; at < definition->ItemCount(); ++at) {
    const auto answer = New<Answer>();
    definition->GetItemInfo(at, answer);
    items.push_back(answer->item);
  }
  return items;
}

}  // namespace brelmon::host
