// SPDX-License-Identifier: GPL-2.0-or-later
// Select all and switch selection are one routine.
#include "layertools/selectactive.h"

namespace brelmon {

void SelectAllRows(const Ref<IObject>& item, SelectionMethod method) {
  if (const auto layer = item.TryAs<IFeatureLayer>()) {
    const auto selection = layer.As<IFeatureSelection>();
    selection->SelectFeatures(nullptr, method, false);
    selection->SelectionChanged();
  } else {
    const auto selection = item.As<ITableSelection>();
    selection->SelectRows(nullptr, method, false);
    selection->SelectionChanged();
  }
}

void RedrawSelection(const Ref<IMxDocument>& document) {
  document->ActiveView()->PartialRefresh(DrawPhase::GeoSelection, nullptr, nullptr);
}

void SelectActive(const Ref<IMxDocument>& document, SelectionMethod method,
                  const InvalidTails& tails) {
  const auto item = ActiveItem(document, {});
  if (!item) return;
  RedrawSelection(document);  // before the change, so that the old selection is erased
  if (const auto set = item.TryAs<ISet>(); set && set->Count() == 0) return;
  const auto select = [method](const Ref<IObject>& member) { SelectAllRows(member, method); };
  if (ForEachValidMember(item, tails, select)) RedrawSelection(document);
}

}  // namespace brelmon
