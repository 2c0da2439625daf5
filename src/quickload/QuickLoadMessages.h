// SPDX-License-Identifier: GPL-2.0-or-later
// What the QuickLoad commands ask and tell alike.
#pragma once

#include "platform/text.h"

namespace brelmon::QuickLoadMessages {

/// Caption of the report of what could not be added.
inline constexpr TextView kErrorReport = u"Error Report:";

/// There is no file beside the document, and no way on.
void TellFileMissing();
/// Whether a new file may be made at `path`.
bool MayCreate(const Text& path);
/// A bookmark or query of that name was written.
void TellSaved(const Text& name);
/// A text of several lines in the modal report window.
void ShowReport(const Text& report, const Text& caption);

}  // namespace brelmon::QuickLoadMessages
