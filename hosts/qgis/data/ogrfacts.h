// SPDX-License-Identifier: GPL-2.0-or-later
// What OGR knows of a source and QGIS doesn't tell: the names of its identifier and shape columns
// and the narrow kinds of number.
#pragma once

#include <qgsvectorlayer.h>

#include <map>

#include "platform/table.h"

namespace brelmon::qgis {

struct OgrFacts {
  Text idField;                           // empty where the source has no column of that kind
  Text shapeField;                        // empty where it has no name
  std::map<Text, FieldType> narrowTypes;  // small integers and singles, by name
};

/// Looked up once a source; nothing known for sources of another kind.
OgrFacts OgrFactsOf(const QgsVectorLayer& layer);

}  // namespace brelmon::qgis
