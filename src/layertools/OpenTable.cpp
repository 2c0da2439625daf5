// SPDX-License-Identifier: GPL-2.0-or-later
// Opens the attribute tables of the active themes.
#include "layertools/OpenTable.h"

#include "layertools/tablewindows.h"
#include "layertools/validmember.h"

namespace brelmon {

OpenTable::OpenTable() : BrelmonCommand(u"OpenTable") {}

void OpenTable::OnClick() {
  Guard::PlainBox([&] {
    const auto item = ActiveItem(m_pMxDoc, {});
    if (!item) return;
    ForEachValidMember(item,
                       {u"layer.  Unable to open table...", u"table.  Unable to open table..."},
                       [&](const Ref<IObject>& member) { OpenTableOf(member, m_pApp); });
  });
}

}  // namespace brelmon
