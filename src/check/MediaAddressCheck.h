// SPDX-License-Identifier: GPL-2.0-or-later
// The rules of a media item that is a web page.
#pragma once

#include "check/FileReport.h"
#include "media/MediaList.h"

namespace brelmon {

/// An item under the kind code of web pages that is no shortcut file.
void CheckAddress(const MediaItem& item, FileReport& report);
/// A shortcut file that is there.
void CheckShortcut(const MediaItem& item, FileReport& report);

}  // namespace brelmon
