// SPDX-License-Identifier: GPL-2.0-or-later
// What a data source tells of the columns behind the fields to dissolve.
#pragma once

#include <string>
#include <vector>

#include "hosts/common/dissolve.h"

class OGRLayer;

namespace brelmon::host {

/// Gives the fields that the source has too, by name, their widths and decimals. Returns the
/// encoding of its texts.
std::string ReadColumns(OGRLayer& source, std::vector<DissolveField>& fields);

}  // namespace brelmon::host
