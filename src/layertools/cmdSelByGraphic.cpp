// SPDX-License-Identifier: GPL-2.0-or-later
// Selects in the active themes what the selected graphics touch.
#include "layertools/cmdSelByGraphic.h"

#include "frame/documentmodel.h"

namespace brelmon {
namespace {

constexpr std::int32_t kIntersects = 1;

/// The layer's new selection is the union of what each graphic touches. Listeners are told once
/// it is empty, not when it is filled.
void SelectTouched(const Ref<IFeatureSelection>& layer, const Ref<IEnumElement>& elements,
                   const Ref<ISpatialFilter>& filter) {
  layer->Clear();
  layer->SelectionChanged();
  elements->Reset();
  for (auto element = elements->Next(); element; element = elements->Next()) {
    filter->Geometry = element->Geometry();
    layer->SelectFeatures(filter, SelectionMethod::Add, false);
  }
}

}  // namespace

cmdSelByGraphic::cmdSelByGraphic() : BrelmonCommand(u"cmdSelByGraphic", Guarded::No) {}

void cmdSelByGraphic::OnClick() {
  const auto map = m_pMxDoc->FocusMap();
  const auto view = m_pMxDoc->ActiveView();
  const auto item =
      ActiveItem(m_pMxDoc, {.Layer = true, .Table = false, .Set = true, .Map = false});
  if (!item) return;
  const auto elements = map->ActiveGraphicsLayer()->SelectedElements();
  const auto filter = New<ISpatialFilter>();
  filter->GeometryField = u"Shape";  // whatever the layer calls its own
  filter->SpatialRel = kIntersects;
  view->PartialRefresh(DrawPhase::GeoSelection, nullptr, nullptr);
  if (const auto set = item.TryAs<ISet>(); set && set->Count() == 0) return;
  ForEachMember(item, [&](const Ref<IObject>& member) {
    if (member.Offers<IFeatureLayer>()) {
      SelectTouched(member.As<IFeatureSelection>(), elements, filter);
    }
    return true;
  });
  m_pMxDoc->ActiveView()->PartialRefresh(DrawPhase::GeoSelection, nullptr, nullptr);
}

}  // namespace brelmon
