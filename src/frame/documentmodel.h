// SPDX-License-Identifier: GPL-2.0-or-later
// How a command finds what the user means by the active themes, and whether it is enabled.
#pragma once

#include <functional>

#include "frame/commandtable.h"
#include "platform/map.h"

namespace brelmon {

/// Kinds of item that a command accepts from the contents view.
struct Accepts {
  bool Layer = true;
  bool Table = true;
  bool Set = true;
  bool Map = false;
};

/// The contents-view gate: the selected item if the tab in front is "Display" or "Source" and the
/// item is of an accepted kind; unset otherwise.
Ref<IObject> ActiveItem(const Ref<IMxDocument>& document, const Accepts& accepts);

/// Runs `act` on the item, or on each member of a set (none for an empty one), until it gives
/// false. Gives whether it ran to the end.
template <class Act>
bool ForEachMember(const Ref<IObject>& item, Act act) {
  const auto set = item.TryAs<ISet>();
  if (!set) return act(item);
  if (set->Count() == 0) return true;
  set->Reset();
  for (auto member = set->Next(); member; member = set->Next()) {
    if (!act(member)) return false;
  }
  return true;
}

/// Each visits in the host's order until `visit` gives false.
void WalkLayers(const Ref<IEnumLayer>& layers,
                const std::function<bool(const Ref<ILayer>&)>& visit);
void WalkTables(const Ref<IMap>& map,
                const std::function<bool(const Ref<IStandaloneTable>&)>& visit);

/// The feature layers of a map at any depth. A map that has none refuses to enumerate them: that
/// failure is ignored, up to the first layer.
void WalkFeatureLayers(const Ref<IMap>& map, const std::function<bool(const Ref<ILayer>&)>& visit);
/// What statistics and queries offer: the valid feature layers of a map at any depth, then its
/// valid tables.
void ForEachValidItem(const Ref<IMap>& map, const std::function<void(const Ref<IObject>&)>& visit);

/// The rules. Each may fail; the command's guard block then reports and gives false.
bool IsEnabled(EnabledRule rule, const Ref<IMxDocument>& document);

/// "There is something wrong with NAME!  It is not a valid " and the command's own tail.
void ShowInvalidData(const Text& name, TextView tail);

/// Whether the item is a feature layer or standalone table whose data can be reached.
bool IsValidItem(const Ref<IObject>& item);
/// Name of a feature layer or standalone table; empty for any other item.
Text ItemName(const Ref<IObject>& item);

}  // namespace brelmon
