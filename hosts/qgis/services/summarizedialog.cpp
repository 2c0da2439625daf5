// SPDX-License-Identifier: GPL-2.0-or-later
// QGIS's dialog "Statistics by categories", with layer and field filled in.
#include "hosts/qgis/services/summarizedialog.h"

#include <qgspythonrunner.h>
#include <qgsvectorlayer.h>

#include "hosts/common/hostfailure.h"
#include "hosts/qgis/data/layerobject.h"
#include "hosts/qgis/qgishost.h"

namespace brelmon::qgis {
namespace {

/// A Python literal: nothing of the text is ever code.
QString Literal(const QString& text) {
  QString literal(QLatin1Char('\''));
  for (const QChar unit : text) {
    literal += QStringLiteral("\\u%1").arg(unit.unicode(), 4, 16, QLatin1Char('0'));
  }
  return literal + QLatin1Char('\'');
}

class SummarizeDialog : public virtual ISummarizeDialog {
 public:
  void SetApplication(const Ref<IApplication>&) override {}
  void SetTable(const Ref<ITable>& table) override { table_ = table; }
  void SetField(const Ref<IField>& field) override { field_ = field; }
  void SetFlag(bool) override {}
  void DoModal(std::int32_t) override {
    const QString layer = VectorLayerOf(table_).id();
    const QString field = ToQt(field_->Name());
    // Dialogs of Processing live in Python; the native side of QGIS has no way to open one.
    const QString code =
        QStringLiteral(
            "import processing\nprocessing.execAlgorithmDialog("
            "'qgis:statisticsbycategories', {'INPUT': %1, 'CATEGORIES_FIELD_NAME': [%2]})")
            .arg(Literal(layer), Literal(field));
    if (!QgsPythonRunner::isValid() || !QgsPythonRunner::run(code)) {
      host::Fail(failure::kNotSupported,
                 u"QGIS can't open its \"Statistics by categories\": it needs Python and the "
                 u"Processing plug-in.");
    }
  }

 private:
  Ref<ITable> table_;
  Ref<IField> field_;
};

}  // namespace

Ref<ISummarizeDialog> NewSummarizeDialog() { return New<SummarizeDialog>(); }

}  // namespace brelmon::qgis
