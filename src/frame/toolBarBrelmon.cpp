// SPDX-License-Identifier: GPL-2.0-or-later
// The toolbar's definition, from the command table.
#include "frame/toolBarBrelmon.h"

#include "frame/commandtable.h"
#include "frame/guard.h"

namespace brelmon {

std::int32_t toolBarBrelmon::ItemCount() {
  return Guard::Top(u"IToolBarDef_ItemCount",
                    [] { return static_cast<std::int32_t>(ToolBarItems().size()); });
}

void toolBarBrelmon::GetItemInfo(std::int32_t pos, const Ref<IItemDef>& itemDef) {
  Guard::Top(u"IToolBarDef_GetItemInfo", [&] {
    if (pos < 0 || static_cast<std::size_t>(pos) >= ToolBarItems().size()) return;
    const ToolBarItem& item = ToolBarItems()[static_cast<std::size_t>(pos)];
    itemDef->SetID(ProgIdOf(item.ClassName));
    if (item.Group) itemDef->SetGroup(true);
  });
}

Text toolBarBrelmon::Name() {
  return Guard::Top(u"IToolBarDef_Name", [] { return Text(kToolBarName); });
}

Text toolBarBrelmon::Caption() {
  return Guard::Top(u"IToolBarDef_Caption", [] { return Text(kToolBarCaption); });
}

}  // namespace brelmon
