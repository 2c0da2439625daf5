// SPDX-License-Identifier: GPL-2.0-or-later
// The error dialog: one window to the end of the process.
#include "hosts/qgis/services/errordialog.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPointer>
#include <QVBoxLayout>

#include "hosts/qgis/qgishost.h"

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
  text->setLineWrapMode(QPlainTextEdit::NoWrap);
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

class ErrorDialog : public virtual IErrorDialog {
 public:
  void SetText(const Text& text) override { TheWindow().text->setPlainText(ToQt(text)); }
  void SetVisible(bool visible) override {
    QDialog& dialog = *TheWindow().dialog;
    if (!visible) return dialog.hide();
    ++timesAsked;
    if (quietNow) return;
    FloatAbove(&dialog);
    dialog.show();
    dialog.raise();
    dialog.activateWindow();
  }
};

}  // namespace

Ref<IErrorDialog> NewErrorDialog() { return New<ErrorDialog>(); }

QuietErrors::QuietErrors(bool quiet) : before_(quietNow), countBefore_(timesAsked) {
  quietNow = quiet;
}

QuietErrors::~QuietErrors() { quietNow = before_; }

int QuietErrors::Count() const { return timesAsked - countBefore_; }

bool ErrorDialogIsOpen() { return window.dialog && window.dialog->isVisible(); }

void WhenErrorDialogCloses(std::function<void()> closed) { Listener() = std::move(closed); }

}  // namespace brelmon::qgis
