// SPDX-License-Identifier: GPL-2.0-or-later
// Frames, layers and tables as the page's contents shows them.
#pragma once

#include "hosts/web/document.h"
#include "hosts/web/json.h"

namespace brelmon::web {

/// Frames with their items in tree order, the tab in front, what is picked.
void DescribeContents(IMxDocument& document, Json& json);

}  // namespace brelmon::web
