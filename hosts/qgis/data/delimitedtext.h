// SPDX-License-Identifier: GPL-2.0-or-later
// Layers of delimited text that read their file as the data room does.
#pragma once

#include <qgsvectorlayer.h>

#include <cstdint>

#include "hosts/data/tablesource.h"

namespace brelmon::qgis {

/// Whether the layer is one of delimited text.
bool IsDelimitedText(const QgsVectorLayer& layer);

/// The layer's data source without a filter; empty for one whose options ask for another reading
/// than GDAL's: other quotes or decimal marks, skipped lines, patterns, fields left out.
QString PlainDelimitedText(const QgsVectorLayer& layer);

/// What a row's number in QGIS, its line's, is ahead of the number in `file`.
std::int64_t HeadLines(const QgsVectorLayer& layer);

/// Whether both see the same columns, of the same types, and each row of `file` stands on a line of
/// its own, so that their numbers differ by the head alone.
bool ReadsAlike(const QgsVectorLayer& layer, data::TableSource& file, const QString& path);

}  // namespace brelmon::qgis
