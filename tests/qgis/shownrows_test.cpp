// SPDX-License-Identifier: GPL-2.0-or-later
// What the user sees counts: unsaved edits and virtual fields in clauses, counts and statistics.
#include <gtest/gtest.h>
#include <qgsproject.h>
#include <qgsvectorlayer.h>

#include "hosts/qgis/qgishost.h"
#include "tests/contract/contract.h"
#include "tests/qgis/inside.h"

namespace brelmon::qgis::test {
namespace {

using contract::Where;

QgsVectorLayer& Opened(const char* name) {
  OpenModule(QStringLiteral("kinds/kinds.qgs"));
  return *qobject_cast<QgsVectorLayer*>(
      QgsProject::instance()->mapLayersByName(QString::fromLatin1(name)).value(0));
}

double SumOf(const Ref<ILayer>& layer, const Text& field, const Text& clause) {
  const std::int32_t at = layer.As<IClass>()->FindField(field);
  const Ref<ICursor> rows = layer.As<ITable>()->Search(Where(clause), true);
  double sum = 0;
  while (const Ref<IRowBuffer> row = rows->NextRow()) sum += row->Value(at).ToDouble();
  return sum;
}

class ShownRows : public testing::TestWithParam<const char*> {};

TEST_P(ShownRows, UnsavedEditsCount) {
  QgsVectorLayer& edited = Opened(GetParam());
  const Ref<ILayer> layer = LayerCalled(FromQt(edited.name()));
  ASSERT_TRUE(edited.startEditing());
  const int value = edited.fields().lookupField(QStringLiteral("VAL"));
  QgsFeature row;
  QgsFeatureIterator rows = edited.getFeatures(QStringLiteral("\"CNT\" = 2"));
  QgsFeatureIds changed;
  while (rows.nextFeature(row)) changed.insert(row.id());
  ASSERT_EQ(changed.size(), 2);
  for (const QgsFeatureId id : changed) edited.changeAttributeValue(id, value, 1000);
  QgsFeature made(edited.fields());
  made.setAttribute(value, 2000);
  ASSERT_TRUE(edited.addFeature(made));

  EXPECT_EQ(layer.As<ITable>()->RowCount(Where(u"\"VAL\" = 1000")), 2);
  EXPECT_EQ(layer.As<ITable>()->RowCount(Where(u"\"VAL\" < 0")), 1) << "-9999 is no more";
  layer.As<ITableSelection>()->SelectRows(Where(u"\"VAL\" > 900"), SelectionMethod::New, false);
  EXPECT_EQ(edited.selectedFeatureCount(), 3);
  EXPECT_EQ(SumOf(layer, u"VAL", u"\"VAL\" >= 1000"), 4000);
  edited.rollBack();
  EXPECT_EQ(layer.As<ITable>()->RowCount(Where(u"\"VAL\" < 0")), 2) << "and there again";
}

TEST_P(ShownRows, VirtualFieldsCanBeIgnoredAndAsked) {
  QgsVectorLayer& shown = Opened(GetParam());
  shown.addExpressionField(QStringLiteral("\"VAL\" * 2"),
                           QgsField(QStringLiteral("TWICE"), QVariant::Double));
  const Ref<ILayer> layer = LayerCalled(FromQt(shown.name()));
  EXPECT_EQ(SumOf(layer, u"TWICE", u"\"TWICE\" <> -19998"), 2 * (1.5 + 20.25 - 0.5 + 1.5 + 33));
  EXPECT_EQ(layer.As<ITable>()->RowCount(Where(u"\"TWICE\" = 3 AND \"NAME\" = 'Alpha'")), 1);
}

INSTANTIATE_TEST_SUITE_P(ShownRowsOf, ShownRows, testing::Values("points", "geojson", "gpkg"));

}  // namespace
}  // namespace brelmon::qgis::test
