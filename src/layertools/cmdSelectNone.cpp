// SPDX-License-Identifier: GPL-2.0-or-later
// Clears the selections of the whole focus map, whatever is active.
#include "layertools/cmdSelectNone.h"

#include "layertools/selectactive.h"

namespace brelmon {
namespace {

template <class Selection>
void Clear(const Ref<Selection>& selection) {
  selection->Clear();
  selection->SelectionChanged();
}

}  // namespace

cmdSelectNone::cmdSelectNone() : BrelmonCommand(u"cmdSelectNone") {}

void cmdSelectNone::OnClick() {
  Guard::PlainBox([&] {
    RedrawSelection(m_pMxDoc);
    const auto map = m_pMxDoc->FocusMap();
    WalkFeatureLayers(map, [](const Ref<ILayer>& layer) {
      if (layer->Valid()) Clear(layer.As<IFeatureSelection>());
      return true;
    });
    WalkTables(map, [](const Ref<IStandaloneTable>& table) {
      if (table->Valid()) Clear(table.As<ITableSelection>());
      return true;
    });
    RedrawSelection(m_pMxDoc);
  });
}

}  // namespace brelmon
