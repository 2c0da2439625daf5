// SPDX-License-Identifier: GPL-2.0-or-later
// Tools of tests that run inside QGIS: the plug-in's parts, waiting, real mouse and key events.
#pragma once

#include <QDialog>
#include <QMessageBox>
#include <QToolButton>
#include <functional>

#include "hosts/qgis/plugin/testdriver.h"
#include "platform/map.h"

namespace brelmon::qgis::test {

const TestAccess& Access();
Ref<IMxDocument> Document();

/// Opens the module's project anew, as it is on the disk.
void OpenModule(const QString& document = QStringLiteral("earth/earth.qgs"));
/// Selects items in the Layers panel: layers and tables by object, frames by their group.
void Pick(const std::vector<Ref<IObject>>& items);
/// A layer of the data frame in focus; null if none has that name.
Ref<ILayer> LayerCalled(const Text& name);
std::int32_t SelectedIn(const Text& layer);
void ShowLayersPanel(bool show);
void SetGraphics(const std::vector<std::string>& wkts);

/// Runs the event loop until `done` or for ten seconds; false if that was not enough.
bool WaitFor(const std::function<bool()>& done);
/// A visible window by its object name; null if it doesn't appear.
QWidget* Window(const QString& name);
/// The same at this moment.
QWidget* Shown(const QString& name);
/// A control's widget by the control's name; a test fails without it.
template <class T>
T* Control(QWidget* window, const char* name) {
  T* widget = window->findChild<T*>(QString::fromLatin1(name));
  if (!widget) throw std::runtime_error(std::string("no control ") + name);
  return widget;
}

QToolButton* ToolButton(const char* className);
/// Pushes a command's button (see below); `script` runs in the command's own event loop, once the
/// window of that name is there. Both have ended when this returns.
void ClickAndDo(const char* className, const QString& window,
                const std::function<void(QWidget*)>& script);
/// The same for any other button.
void ClickAndDo(QWidget* button, const QString& window,
                const std::function<void(QWidget*)>& script);
/// Clicks a tool button, or the menu entry of a command off the bar, once it is enabled.
void Push(const char* className);
/// Runs `script` in the event loop that comes next, once the window of that name is there.
void Soon(const QString& window, const std::function<void(QWidget*)>& script);
/// Answers the next message box by a click on one of its buttons.
void AnswerBox(QMessageBox::StandardButton answer, QString* text = nullptr);
void Click(QWidget* widget);
/// A click that goes through the window system, which gives the focus by the time of the last one.
void ClickForReal(QWidget* widget);
/// Clicks the mark of a radio button: the rest of its place may lie beyond its text.
void ClickOption(QWidget* window, const char* name);
void ClickRow(QWidget* list, int row, Qt::KeyboardModifiers keys = Qt::NoModifier);

/// Whether a window takes input now; asked of the window system's side, where modality is decided.
bool TakesInput(QWidget* window);

/// Writes a picture of the whole screen, of one window with its frame, or of one widget, if
/// pictures are asked for.
void TakePicture(const QString& name, QWidget* window = nullptr);

/// Stands in for the program that opens files and addresses, from now on.
void StandInForOpener();
/// What the stand-in was given last: target and folder. Waits for it, and forgets it.
QStringList LastOpened();

}  // namespace brelmon::qgis::test
