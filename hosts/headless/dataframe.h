// SPDX-License-Identifier: GPL-2.0-or-later
// Data frames with a reference system.
#pragma once

#include <memory>

#include "hosts/document/dataframe.h"

class OGRSpatialReference;

namespace brelmon::headless {

/// `crs` is null where the project tells none.
Ref<IMap> NewDataFrame(document::FrameSettings settings,
                       std::shared_ptr<const OGRSpatialReference> crs);

}  // namespace brelmon::headless
