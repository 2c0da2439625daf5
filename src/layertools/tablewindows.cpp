// SPDX-License-Identifier: GPL-2.0-or-later
// Finds, makes and shows attribute table windows.
#include "layertools/tablewindows.h"

#include "platform/services.h"
#include "platform/windows.h"

namespace brelmon {
namespace {

constexpr std::int32_t kSelectionAction = 2;

void OpenNewTableWindow(const Ref<IFeatureLayer>& layer, const Ref<IApplication>& application) {
  const auto window = HostObjects().NewTableWindow();
  window->SetFeatureLayer(layer);
  window->SetApplication(application);
  const auto settings = window.As<ITableWindow2>();
  settings->SetTableSelectionAction(kSelectionAction);
  settings->SetLayerDisplay(true);
  window->Show(true);
}

}  // namespace

void OpenNewTableWindow(const Ref<IStandaloneTable>& table, const Ref<IApplication>& application) {
  const auto window = HostObjects().NewTableWindow();
  window->SetStandaloneTable(table);
  window->SetApplication(application);
  const auto settings = window.As<ITableWindow2>();
  settings->SetTableSelectionAction(kSelectionAction);
  settings->SetTableDisplay(true, false);
  window->Show(true);
}

void OpenTableOf(const Ref<IObject>& item, const Ref<IApplication>& application) {
  if (const auto layer = item.TryAs<IFeatureLayer>()) {
    const auto open = HostObjects().NewTableWindow()->FindViaFeatureLayer(layer, false);
    if (open) return open->Show(true);
    OpenNewTableWindow(layer, application);
  } else if (const auto table = item.TryAs<IStandaloneTable>()) {
    const auto open = HostObjects().NewTableWindow()->FindViaStandaloneTable(table, false);
    if (open) return open->Show(true);
    OpenNewTableWindow(table, application);
  }
}

}  // namespace brelmon
