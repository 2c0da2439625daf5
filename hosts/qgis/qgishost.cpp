// SPDX-License-Identifier: GPL-2.0-or-later
// The running QGIS and the order of windows above it.
#include "hosts/qgis/qgishost.h"

#include <qgisinterface.h>

#include <QDialog>
#include <QPointer>
#include <QVector>
#include <QWindow>

#include "platform/failure.h"

namespace brelmon::qgis {
namespace {

QgisInterface* running = nullptr;

QVector<QPointer<QDialog>>& ModalWindows() {
  static QVector<QPointer<QDialog>> windows;
  return windows;
}

QVector<QPointer<QWidget>>& FloatingWindows() {
  static QVector<QPointer<QWidget>> windows;
  return windows;
}

// A window whose transient parent is a modal dialog isn't blocked by it.
void Raise(QWidget& window) {
  QWidget* owner = OwnerWindow();
  if (!owner || owner == &window) return;
  owner->winId();
  window.winId();
  window.windowHandle()->setTransientParent(owner->windowHandle());
}

void RaiseAll() {
  for (const auto& window : FloatingWindows()) {
    if (window) Raise(*window);
  }
}

}  // namespace

QgisInterface& Iface() {
  if (!running) brelmon::Raise(failure::kObjectNotSet, 0);
  return *running;
}

void SetIface(QgisInterface* iface) { running = iface; }

QWidget* OwnerWindow() {
  const auto& modal = ModalWindows();
  for (auto at = modal.rbegin(); at != modal.rend(); ++at) {
    if (*at && (*at)->isVisible()) return *at;
  }
  return running ? running->mainWindow() : nullptr;
}

void PushModalWindow(QDialog* dialog) {
  ModalWindows().push_back(dialog);
  RaiseAll();
}

void PopModalWindow(QDialog* dialog) {
  ModalWindows().removeAll(dialog);
  RaiseAll();
}

void FloatAbove(QWidget* window) {
  auto& windows = FloatingWindows();
  windows.removeAll(QPointer<QWidget>());
  if (!windows.contains(window)) windows.push_back(window);
  Raise(*window);
}

}  // namespace brelmon::qgis
