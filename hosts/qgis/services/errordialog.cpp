// SPDX-License-Identifier: GPL-2.0-or-later
// The error dialog: one window to the end of the process.
#include "hosts/qgis/services/errordialog.h"

#include <qgisinterface.h>
#include <qgsmessagebar.h>

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPointer>
#include <QVBoxLayout>

#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/userturn.h"

namespace brelmon::qgis {
namespace {

std::function<void()>& Listener() {
  static std::function<void()> listener;
  return listener;
}

struct Window {
  QPointer<QDialog> dialog;
  QPlainTextEdit* text = nullptr;
};

Window window;
bool quietNow = false;
int timesAsked = 0;
int clickShown = 0;    // the click that the dialog's text belongs to
bool endTold = false;  // of the turn that was ended last

Window& TheWindow() {
  if (window.dialog) return window;
  auto* dialog = new QDialog;
  dialog->setObjectName(QStringLiteral("BrelmonErrorDialog"));
  dialog->setWindowTitle(QStringLiteral("Brelmon Tools"));
  dialog->setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  auto* text = new QPlainTextEdit(dialog);
  text->setObjectName(QStringLiteral("txtTrail"));
  text->setReadOnly(true);
  text->setTabChangesFocus(true);
  text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  text->setAccessibleName(QStringLiteral("What failed, and where"));
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, dialog);
  auto* column = new QVBoxLayout(dialog);
  column->addWidget(text);
  column->addWidget(buttons);
  dialog->resize(640, 320);
  QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
  QObject::connect(dialog, &QDialog::finished, dialog, [] {
    if (Listener()) Listener()();
  });
  // Nobody but this window keeps the process from ending with its last own window.
  dialog->setAttribute(Qt::WA_QuitOnClose, false);
  window = {dialog, text};
  return window;
}

/// Below what the same click has told before, as long as that can still be read.
void ShowInDialog(const QString& what) {
  const auto [dialog, text] = TheWindow();
  const bool more = dialog->isVisible() && CurrentClick() != 0 && CurrentClick() == clickShown;
  clickShown = CurrentClick();
  if (more) {
    text->appendPlainText(QString(40, QLatin1Char('-')) + QLatin1Char('\n') + what);
  } else {
    text->setPlainText(what);
  }
  text->moveCursor(QTextCursor::Start);
  FloatAbove(dialog);
  BringUp(*dialog);
}

class ErrorDialog : public virtual IErrorDialog {
 public:
  void SetText(const Text& text) override { text_ = ToQt(text); }
  void SetVisible(bool visible) override {
    if (!visible) return TheWindow().dialog->hide();
    ++timesAsked;
    if (TellEndOfTurn() || quietNow) return;
    ShowInDialog(text_);
  }

 private:
  QString text_;
};

}  // namespace

Ref<IErrorDialog> NewErrorDialog() { return New<ErrorDialog>(); }

QuietErrors::QuietErrors(bool quiet) : before_(quietNow), countBefore_(timesAsked) {
  quietNow = quiet;
}

QuietErrors::~QuietErrors() { quietNow = before_; }

int QuietErrors::Count() const { return timesAsked - countBefore_; }

bool TellEndOfTurn() {
  const Text* reason = EndOfTurn();
  if (!reason || endTold) return reason != nullptr;
  endTold = true;
  AtEndOfTurn([] { endTold = false; });
  if (!reason->empty()) ShowInDialog(ToQt(*reason));
  return true;
}

void TellFailure(const Text& reason) {
  if (TellEndOfTurn()) return;
  Iface().messageBar()->pushCritical(QStringLiteral("Brelmon Tools"), ToQt(reason));
}

void InTurn(const std::function<void()>& deed) {
  const UserTurn turn;
  try {
    deed();
  } catch (...) {
    TellFailure(CurrentFailure().Description);
  }
}

bool ErrorDialogIsOpen() { return window.dialog && window.dialog->isVisible(); }

void WhenErrorDialogCloses(std::function<void()> closed) { Listener() = std::move(closed); }

}  // namespace brelmon::qgis
