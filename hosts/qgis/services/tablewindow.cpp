// SPDX-License-Identifier: GPL-2.0-or-later
// Attribute tables, found by the name that QGIS gives their windows.
#include "hosts/qgis/services/tablewindow.h"

#include <qgisinterface.h>
#include <qgsvectorlayer.h>

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QScreen>
#include <QStyle>

#include "hosts/common/hostfailure.h"
#include "hosts/qgis/data/layerobject.h"
#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/userturn.h"

namespace brelmon::qgis {
namespace {

QDialog* OpenWindowOf(const QgsVectorLayer& layer) {
  const QString name = QStringLiteral("QgsAttributeTableDialog/") + layer.id();
  for (QWidget* widget : QApplication::allWidgets()) {
    if (widget->objectName() == name && widget->inherits("QDialog") &&
        widget->window()->isVisible())
      return static_cast<QDialog*>(widget);
  }
  return nullptr;
}

/// QGIS opens all tables at the same place: each is moved until it lies on no other one.
void MoveOffOthers(QWidget& table) {
  if (table.isMaximized() || table.isFullScreen()) return;
  QVector<QPoint> taken;
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    if (window != &table && window->isVisible() && window->inherits("QgsAttributeTableDialog")) {
      taken << window->pos();
    }
  }
  const int step = QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight) + 8;
  const QRect room = table.screen()->availableGeometry();
  QRect place(table.pos(), table.frameSize());
  for (int tries = 0; tries < 40 && taken.contains(place.topLeft()); ++tries) {
    place.translate(step, step);
    if (!room.contains(place)) place.moveTopLeft(room.topLeft() + QPoint(step * tries / 4, 0));
  }
  table.move(place.topLeft());
}

class TableWindow : public virtual ITableWindow, public virtual ITableWindow2 {
 public:
  TableWindow() = default;
  explicit TableWindow(QDialog* window) : window_(window) {}

  Ref<ITableWindow> FindViaFeatureLayer(const Ref<IFeatureLayer>& layer, bool) override {
    return Find(layer);
  }
  Ref<ITableWindow> FindViaStandaloneTable(const Ref<IStandaloneTable>& table, bool) override {
    return Find(table);
  }
  void SetFeatureLayer(const Ref<IFeatureLayer>& layer) override { item_ = layer; }
  void SetStandaloneTable(const Ref<IStandaloneTable>& table) override { item_ = table; }
  void SetApplication(const Ref<IApplication>&) override {}
  void SetTableSelectionAction(std::int32_t) override {}
  void SetLayerDisplay(bool) override {}
  void SetTableDisplay(bool, bool) override {}

  void Show(bool show) override {
    if (!show) {
      if (window_) window_->window()->hide();
      return;
    }
    CheckTurn();
    const bool opens = !window_;
    if (opens && !item_) host::Fail(failure::kObjectNotSet);
    if (opens) window_ = Iface().showAttributeTable(&VectorLayerOf(item_));
    if (!window_) host::Fail(failure::kInvalidCall, u"QGIS did not open the table.");
    QWidget* top = window_->window();
    if (opens) MoveOffOthers(*top);
    BringUp(*top);
  }
  // QGIS deletes a table window that is closed.
  void Unload() override {
    if (window_) window_->close();
  }

 private:
  static Ref<ITableWindow> Find(const Ref<IObject>& item) {
    QDialog* open = OpenWindowOf(VectorLayerOf(item));
    return open ? Ref<ITableWindow>(New<TableWindow>(open)) : Ref<ITableWindow>();
  }

  Ref<IObject> item_;
  QPointer<QDialog> window_;
};

}  // namespace

Ref<ITableWindow> NewTableWindow() { return New<TableWindow>(); }

}  // namespace brelmon::qgis
