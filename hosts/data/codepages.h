// SPDX-License-Identifier: GPL-2.0-or-later
// Code pages by the names that GDAL has for them.
#pragma once

#include "hosts/columns/codepage.h"

namespace brelmon::data {

/// UTF-8 for an empty name; known by its name alone where it isn't a page of 256 characters.
columns::CodePage CodePageNamed(const std::string& name);

}  // namespace brelmon::data
