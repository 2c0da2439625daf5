// SPDX-License-Identifier: GPL-2.0-or-later
// How a command that acts on the active themes takes each of them in turn.
#pragma once

#include "frame/documentmodel.h"

namespace brelmon {

/// How a command ends the message on an item whose data can't be reached.
struct InvalidTails {
  TextView Layer;
  TextView Table;
};

/// Runs `act` on the item if it is a feature layer or standalone table, or on each such member of
/// a set. The first whose data can't be reached is told of and ends it. Gives whether it ran to
/// the end.
template <class Act>
bool ForEachValidMember(const Ref<IObject>& item, const InvalidTails& tails, Act act) {
  return ForEachMember(item, [&](const Ref<IObject>& member) {
    const bool isLayer = member.Offers<IFeatureLayer>();
    if (!isLayer && !member.Offers<IStandaloneTable>()) return true;
    if (!IsValidItem(member)) {
      ShowInvalidData(ItemName(member), isLayer ? tails.Layer : tails.Table);
      return false;
    }
    act(member);
    return true;
  });
}

}  // namespace brelmon
