// SPDX-License-Identifier: GPL-2.0-or-later
// The application object, and dialogs of a desktop map in places that have none.
#pragma once

#include "platform/map.h"
#include "platform/windows.h"

namespace brelmon::document {

/// `documentPath` is the Windows path of the open map document.
Ref<IApplication> NewApplication(Ref<IMxDocument> document, Ref<IStatusBar> statusBar,
                                 Text documentPath);

/// A command for each identifier that a desktop map has a dialog for: run, it says that there is
/// none, in the words of `none` ("a page has none"). Unset for any other.
Ref<ICommandItem> FindDesktopCommand(const Text& identifier, const char* none);
/// Takes everything and refuses to be shown.
Ref<ISummarizeDialog> NewDesktopSummarize(const char* none);

}  // namespace brelmon::document
