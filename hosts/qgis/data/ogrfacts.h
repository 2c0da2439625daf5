// SPDX-License-Identifier: GPL-2.0-or-later
// What OGR knows of a source and QGIS doesn't tell: the names of its identifier and shape columns,
// the narrow kinds of number, widths in bytes.
#pragma once

#include <qgsvectorlayer.h>

#include <map>
#include <string>
#include <vector>

#include "hosts/common/dissolve.h"
#include "platform/table.h"

namespace brelmon::qgis {

struct OgrFacts {
  Text idField;                           // empty where the source has no column of that kind
  Text shapeField;                        // empty where it has no name
  std::map<Text, FieldType> narrowTypes;  // small integers and singles, by name
};

/// Looked up once a source; nothing known for sources of another kind.
OgrFacts OgrFactsOf(const QgsVectorLayer& layer);

/// Gives the fields the widths and decimals of their columns, where the layer's source has them.
/// Returns the encoding of its texts; "UTF-8" for sources of another kind.
std::string ReadOgrColumns(const QgsVectorLayer& layer, std::vector<host::DissolveField>& fields);

}  // namespace brelmon::qgis
