// SPDX-License-Identifier: GPL-2.0-or-later
// What the dialogs ask of a layer and of a table alike.
#include "selection/mapitem.h"

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

FieldEnclosure EnclosureFor(const Text& sourceText) {
  // Only the first test ignores case.
  if (FindNoCase(sourceText, u"Personal Geodatabase") != Text::npos) return {u"[", u"]"};
  if (sourceText.find(u"SDE") != Text::npos) return {};
  if (sourceText.find(u"IMS") != Text::npos) return {};
  return {u"\"", u"\""};
}

void SwitchSelection(const Ref<IApplication>& application, const Ref<IObject>& item) {
  const auto view = application->Document().As<IMxDocument>()->ActiveView();
  view->PartialRefresh(DrawPhase::GeoSelection, {}, {});
  if (item.Offers<IFeatureLayer>()) {
    const auto selection = item.As<IFeatureSelection>();
    selection->SelectFeatures({}, SelectionMethod::Xor, false);
    selection->SelectionChanged();
  } else {
    const auto selection = item.As<IStandaloneTable>().As<ITableSelection>();
    selection->SelectRows({}, SelectionMethod::Xor, false);
    selection->SelectionChanged();
  }
  view->PartialRefresh(DrawPhase::GeoSelection, {}, {});
}

}  // namespace brelmon
