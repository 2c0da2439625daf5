// SPDX-License-Identifier: GPL-2.0-or-later
// Layers that the tools don't act on, but that stand in the contents view: rasters and groups.
#pragma once

#include <string>

#include "hosts/data/sourceaddress.h"
#include "platform/map.h"

namespace brelmon::headless {

/// Offered by groups, for listings.
class IGroupLayer : public virtual IObject {};

/// Valid if GDAL can open the file; data from the net is taken as it is.
Ref<ILayer> NewRasterLayer(Text name, std::string provider, data::SourceAddress source);
Ref<ILayer> NewGroupLayer(Text name);

}  // namespace brelmon::headless
