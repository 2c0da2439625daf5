// SPDX-License-Identifier: GPL-2.0-or-later
// The running QGIS and the order of windows above it.
#include "hosts/qgis/qgishost.h"

#include <qgisinterface.h>

#include <QDialog>
#include <QPointer>
#include <QTimer>
#include <QVector>
#include <QWindow>
#include <vector>

#include "hosts/qgis/session.h"

namespace brelmon::qgis {
namespace {

struct Floating {
  QPointer<QWidget> window;
  const QWidget* shownOver;  // may be gone; only ever compared
};

struct Windows {
  QVector<QPointer<QDialog>> modal;
  std::vector<Floating> floating;
};

Windows& OurWindows() { return Session::Running().Of<Windows>(); }

// A window whose transient parent is a modal dialog isn't blocked by it.
void RaiseOver(QWidget* owner, QWidget& window) {
  if (!owner || owner == &window) return;
  owner->winId();
  window.winId();
  window.windowHandle()->setTransientParent(owner->windowHandle());
}

void RaiseAllOver(QWidget* owner) {
  for (const auto& [window, over] : OurWindows().floating) {
    if (window) RaiseOver(owner, *window);
  }
}

// The window system learns only at a showing what a window is to stay above.
void ShowOver(QWidget* owner, Floating& floating) {
  QWidget& window = *floating.window;
  floating.shownOver = owner;
  if (!window.isVisible() || window.isMinimized()) return;
  const QPoint place = window.pos();
  window.hide();
  window.setAttribute(Qt::WA_ShowWithoutActivating);
  window.move(place);
  window.show();
  window.setAttribute(Qt::WA_ShowWithoutActivating, false);
}

}  // namespace

QgisInterface& Iface() { return Session::Running().Iface(); }

QWidget* OwnerWindow() {
  if (!Session::IfRunning()) return nullptr;
  const auto& modal = OurWindows().modal;
  for (auto at = modal.rbegin(); at != modal.rend(); ++at) {
    if (*at && (*at)->isVisible()) return *at;
  }
  return Iface().mainWindow();
}

void PushModalWindow(QDialog* dialog) {
  OurWindows().modal.push_back(dialog);
  RaiseAllOver(dialog);
  // A window shown just before would come up above it.
  QTimer::singleShot(0, dialog, [dialog] {
    if (OwnerWindow() == dialog) BringUp(*dialog);
  });
}

void PopModalWindow(QDialog* dialog) {
  if (!Session::IfRunning()) return;
  OurWindows().modal.removeAll(dialog);
  RaiseAllOver(OwnerWindow());
  for (Floating& floating : OurWindows().floating) {
    if (floating.window && floating.shownOver == dialog) ShowOver(OwnerWindow(), floating);
  }
}

void BringUp(QWidget& window) {
  window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
  window.show();
  window.raise();
  window.activateWindow();
}

void FloatAbove(QWidget* window) {
  auto& windows = OurWindows().floating;
  std::erase_if(windows,
                [window](const Floating& each) { return !each.window || each.window == window; });
  windows.push_back({window, OwnerWindow()});
  RaiseOver(OwnerWindow(), *window);
}

}  // namespace brelmon::qgis
