// SPDX-License-Identifier: GPL-2.0-or-later
// Message boxes, the mouse pointer and the clipboard.
#include "hosts/qgis/services/desktop.h"

#include <QApplication>
#include <QClipboard>
#include <QMessageBox>

#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/services/errordialog.h"
#include "hosts/qgis/userturn.h"

namespace brelmon::qgis {
namespace {

QMessageBox::Icon IconOf(int style) {
  switch (style & 0x70) {
    case box::kCritical:
      return QMessageBox::Critical;
    case box::kExclamation:
      return QMessageBox::Warning;
    case box::kInformation:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

QMessageBox::StandardButtons ButtonsOf(int style) {
  switch (style & 0x0F) {
    case box::kOkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case box::kYesNo:
      return QMessageBox::Yes | QMessageBox::No;
    default:
      return QMessageBox::Ok;
  }
}

class MessageBox : public IMessageBox {
 public:
  int Show(const Text& text, int style, const Text& title) override {
    TellEndOfTurn();
    CheckTurn();
    const auto buttons = ButtonsOf(style);
    QMessageBox dialog(IconOf(style), ToQt(title), ToQt(text), buttons, OwnerWindow());
    dialog.setObjectName(QStringLiteral("BrelmonMessageBox"));
    dialog.setTextFormat(Qt::PlainText);
    dialog.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    dialog.setWindowModality(Qt::WindowModal);
    dialog.setDefaultButton(buttons & QMessageBox::Yes ? QMessageBox::Yes : QMessageBox::Ok);
    if (buttons & QMessageBox::No) dialog.setEscapeButton(QMessageBox::No);
    PushModalWindow(&dialog);
    const int answer = dialog.exec();
    PopModalWindow(&dialog);
    switch (answer) {
      case QMessageBox::Cancel:
        return box::kAnswerCancel;
      case QMessageBox::Yes:
        return box::kAnswerYes;
      case QMessageBox::No:
        return box::kAnswerNo;
      default:
        return box::kAnswerOk;
    }
  }
  void Beep() override { QApplication::beep(); }
};

class ScreenPointer : public IScreen {
 public:
  ~ScreenPointer() override { Restore(); }
  void SetMousePointer(Pointer pointer) override {
    if (pointer != Pointer::Hourglass) return Restore();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    ++*ours_;
    AtEndOfTurn([ours = ours_, before = *ours_ - 1] { RestoreTo(before, *ours); });
  }

 private:
  void Restore() { RestoreTo(0, *ours_); }
  static void RestoreTo(int count, int& ours) {
    for (; ours > count; --ours) QApplication::restoreOverrideCursor();
  }
  std::shared_ptr<int> ours_ = std::make_shared<int>(0);
};

class Clipboard : public IClipboard {
 public:
  void Clear() override { QApplication::clipboard()->clear(); }
  void SetText(const Text& text) override { QApplication::clipboard()->setText(ToQt(text)); }
};

}  // namespace

std::unique_ptr<IMessageBox> NewMessageBox() { return std::make_unique<MessageBox>(); }

std::unique_ptr<IScreen> NewScreen() { return std::make_unique<ScreenPointer>(); }

std::unique_ptr<IClipboard> NewClipboard() { return std::make_unique<Clipboard>(); }

}  // namespace brelmon::qgis
