// SPDX-License-Identifier: GPL-2.0-or-later
// What the dialogs ask of a layer and of a table alike.
#include "selection/mapitem.h"

#include "layertools/selectactive.h"
#include "platform/workspace.h"

namespace brelmon {

Ref<ITable> TableOf(const Ref<IObject>& item) {
  if (item.Offers<IFeatureLayer>()) return item.As<ITable>();
  return item.As<IStandaloneTable>()->Table();
}

std::int32_t SelectedCount(const Ref<IObject>& item) {
  return item.As<ITableSelection>()->SelectionSet()->Count();
}

Text SourceText(const Ref<IObject>& item) {
  if (item.Offers<IFeatureLayer>()) return item.As<IFeatureLayer>()->DataSourceType();
  const auto table = item.As<IStandaloneTable>();
  return table.As<IDataset>()->Workspace()->WorkspaceFactory()->WorkspaceDescription(false);
}

void SwitchSelection(const Ref<IApplication>& application, const Ref<IObject>& item) {
  const auto view = application->Document().As<IMxDocument>()->ActiveView();
  view->PartialRefresh(DrawPhase::GeoSelection, {}, {});
  SelectAllRows(item, SelectionMethod::Xor);
  view->PartialRefresh(DrawPhase::GeoSelection, {}, {});
}

}  // namespace brelmon
