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

#include "hosts/columns/emptyvalue.h"
#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/session.h"
#include "hosts/qgis/userturn.h"

namespace brelmon::qgis {

struct Errors {
  std::function<void()> closed;
  bool quiet = false;
  int timesAsked = 0;
  int clickShown = 0;    // the click that the dialog's text belongs to
  bool endTold = false;  // of the turn that was ended last
};

namespace {

/// To the end of the process: what it tells is read when the plug-in is gone, too.
struct Window {
  QPointer<QDialog> dialog;
  QPlainTextEdit* text = nullptr;
};

Window window;

Errors& Told() { return Session::Running().Of<Errors>(); }

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
    Session* session = Session::IfRunning();
    if (session && session->Of<Errors>().closed) session->Of<Errors>().closed();
  });
  // Nobody but this window keeps the process from ending with its last own window.
  dialog->setAttribute(Qt::WA_QuitOnClose, false);
  window = {dialog, text};
  return window;
}

/// Below what the same click has told before, as long as that can still be read.
void ShowInDialog(const QString& what) {
  const auto [dialog, text] = TheWindow();
  const bool more =
      dialog->isVisible() && CurrentClick() != 0 && CurrentClick() == Told().clickShown;
  Told().clickShown = CurrentClick();
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
  void SetText(const Text& text) override { text_ = text; }
  void SetVisible(bool visible) override {
    if (!visible) return TheWindow().dialog->hide();
    ++Told().timesAsked;
    if (TellEndOfTurn() || Told().quiet) return;
    ShowInDialog(ToQt(columns::WithEmptyValue(text_)));
  }

 private:
  Text text_;
};

}  // namespace

Ref<IErrorDialog> NewErrorDialog() { return New<ErrorDialog>(); }

QuietErrors::QuietErrors(bool quiet)
    : errors_(Session::Running().Shared<Errors>()),
      before_(errors_->quiet),
      countBefore_(errors_->timesAsked) {
  errors_->quiet = quiet;
}

QuietErrors::~QuietErrors() { errors_->quiet = before_; }

int QuietErrors::Count() const { return errors_->timesAsked - countBefore_; }

bool TellEndOfTurn() {
  const Text* reason = EndOfTurn();
  const auto& errors = Session::Running().Shared<Errors>();
  if (!reason || errors->endTold) return reason != nullptr;
  errors->endTold = true;
  AtEndOfTurn([errors] { errors->endTold = false; });
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

void WhenErrorDialogCloses(std::function<void()> closed) { Told().closed = std::move(closed); }

}  // namespace brelmon::qgis
