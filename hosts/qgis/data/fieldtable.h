// SPDX-License-Identifier: GPL-2.0-or-later
// The fields of a vector layer in the platform's terms, and what its data source is.
#pragma once

#include <qgsvectorlayer.h>

#include <memory>
#include <string>
#include <vector>

#include "hosts/data/tablesource.h"
#include "platform/table.h"

namespace brelmon::qgis {

struct FieldFacts {
  Text name;
  Text alias;
  FieldType type = FieldType::String;
  bool visible = true;
};

struct FieldTable {
  std::vector<FieldFacts> fields;

  /// Regardless of case; -1 if there is none.
  std::int32_t Find(const Text& name) const;
  /// Out of bounds fails with 9.
  const FieldFacts& At(std::int32_t index) const;
};

/// As the layer's attributes, in their order. A file tells the narrow kinds of number and its
/// identifiers' column, where there is one.
std::shared_ptr<const FieldTable> FieldsOf(const QgsVectorLayer& layer,
                                           const data::TableSource* file);
FieldType TypeOf(const QgsField& field);

Ref<IField> FieldObject(const FieldFacts& facts);
Ref<IFieldInfo> FieldInfoObject(const FieldFacts& facts);
Ref<IFields> FieldsObject(std::shared_ptr<const FieldTable> table);

struct SourceDescription {
  Text featureClass;  // "Shapefile Feature Class"
  Text workspace;     // "Shapefile"; plural with an s
  std::string path;   // system path of the folder or file that is the workspace, empty if none
};

SourceDescription SourceFacts(const QgsVectorLayer& layer);

}  // namespace brelmon::qgis
