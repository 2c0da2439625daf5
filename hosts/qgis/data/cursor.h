// SPDX-License-Identifier: GPL-2.0-or-later
// Cursors over the rows of a vector layer.
#pragma once

#include <qgsvectorlayer.h>

#include <memory>

#include "platform/table.h"

namespace brelmon::qgis {

struct RowSource {
  QgsVectorLayer* layer = nullptr;        // the user's own; must outlive the first row only
  std::unique_ptr<QgsVectorLayer> trial;  // read in its place if set
  std::unique_ptr<QgsFeatureIds> only;    // no others, if set
  Text field;                             // the one that will be read; empty for all
};

/// Opened at the first row: reads the attributes that are asked for and no shapes.
Ref<ICursor> NewCursor(RowSource source, bool recycling);

}  // namespace brelmon::qgis
