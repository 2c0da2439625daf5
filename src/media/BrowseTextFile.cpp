// SPDX-License-Identifier: GPL-2.0-or-later
// The catalog dialog for one text file.
#include "media/BrowseTextFile.h"

#include "platform/services.h"
#include "platform/windows.h"

namespace brelmon {

std::optional<Text> BrowseTextFile(const Ref<IApplication>& application, const Text& expectedPath,
                                   const Text& title) {
  const auto browser = HostObjects().NewGxDialog();
  browser->SetAllowMultiSelect(false);
  browser->SetStartingLocation(expectedPath);
  browser->SetTitle(title);
  browser->SetObjectFilter(GxFilter::TextFiles);
  Ref<IEnumGxObject> selection;
  if (!browser->DoModalOpen(application->hWnd(), selection)) return {};
  return selection->Next()->FullName();
}

}  // namespace brelmon
