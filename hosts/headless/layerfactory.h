// SPDX-License-Identifier: GPL-2.0-or-later
// Objects for the layers that a project describes.
#pragma once

#include "hosts/headless/project.h"
#include "platform/map.h"

namespace brelmon::headless {

/// A feature layer, a standalone table or another layer, by what the data is; where the data isn't
/// reached, by what the project says.
Ref<IObject> MakeLayer(const LayerDefinition& definition, const std::string& folder);

/// The one layer of a layer-definition file. Fails with 5 and the reason for a file that can't be
/// read, that holds none or several, or whose only one is a table.
Ref<ILayer> LayerOfFile(const std::string& systemPath);

}  // namespace brelmon::headless
