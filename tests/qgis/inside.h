// SPDX-License-Identifier: GPL-2.0-or-later
// Tools of tests that run inside QGIS: the plug-in's parts, waiting, real mouse and key events.
#pragma once

#include <QDialog>
#include <QToolButton>
#include <functional>

#include "hosts/qgis/plugin/testdriver.h"
#include "platform/map.h"

namespace brelmon::qgis::test {

const TestAccess& Access();
Ref<IMxDocument> Document();

/// Opens the module's project anew, as it is on the disk.
void OpenModule();
/// Selects items in the Layers panel: layers and tables by object, frames by their group.
void Pick(const std::vector<Ref<IObject>>& items);
void ShowLayersPanel(bool show);
void SetGraphics(const std::vector<std::string>& wkts);

/// Runs the event loop until `done` or for ten seconds; false if that was not enough.
bool WaitFor(const std::function<bool()>& done);
/// A visible window by its object name; null if it doesn't appear.
QWidget* Window(const QString& name);
/// A control's widget by the control's name; a test fails without it.
template <class T>
T* Control(QWidget* window, const char* name) {
  T* widget = window->findChild<T*>(QString::fromLatin1(name));
  if (!widget) throw std::runtime_error(std::string("no control ") + name);
  return widget;
}

QToolButton* ToolButton(const char* className);
/// Clicks a tool button with the mouse; `script` runs in the command's own event loop, once the
/// window of that name is there. Both have ended when this returns.
void ClickAndDo(const char* className, const QString& window,
                const std::function<void(QWidget*)>& script);
void Click(QWidget* widget);
void ClickRow(QWidget* list, int row, Qt::KeyboardModifiers keys = Qt::NoModifier);

/// Writes a picture of the whole screen, if pictures are asked for.
void TakePicture(const QString& name);

}  // namespace brelmon::qgis::test
