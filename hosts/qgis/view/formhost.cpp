// SPDX-License-Identifier: GPL-2.0-or-later
// Modal forms: a dialog and a loop of events of its own, until the form hides or unloads.
#include "hosts/qgis/view/formhost.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QEventLoop>

#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/userturn.h"
#include "hosts/qgis/view/formview.h"
#include "hosts/qgis/view/formwindow.h"

namespace brelmon::qgis {
namespace {

class FormDialog : public QDialog {
 public:
  explicit FormDialog(Form& form)
      : QDialog(OwnerWindow()),
        form_(form),
        area_(new FormArea(*this, form)),
        view_(new FormView(
            form, this, [this] { area_->Fit(); }, [this] { loop_.quit(); })) {
    setObjectName(ToQt(form.Name()));
    setWindowModality(Qt::WindowModal);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    area_->Hold(*view_);
  }

  void Run() {
    PushModalWindow(this);
    QObject::connect(qApp, &QApplication::aboutToQuit, &loop_, &QEventLoop::quit);
    show();
    view_->ShowFocus();
    loop_.exec(QEventLoop::DialogExec);
    hide();
    PopModalWindow(this);
    view_->Detach();
  }

 protected:
  void closeEvent(QCloseEvent* event) override {
    event->ignore();
    view_->Do([this] { form_.UserClose(); });
  }
  void resizeEvent(QResizeEvent*) override { area_->WindowResized(size()); }
  void changeEvent(QEvent* event) override {
    QDialog::changeEvent(event);
    if (event->type() != QEvent::ActivationChange || !isActiveWindow()) return;
    // The first time is the showing itself, which the form has heard of.
    if (activated_) view_->Do([this] { form_.UserActivate(); });
    activated_ = true;
  }
  void reject() override { close(); }

 private:
  Form& form_;
  QEventLoop loop_;
  FormArea* area_;
  FormView* view_;
  bool activated_ = false;
};

class FormHostOfQgis : public IFormHost {
 public:
  void ShowModal(Form& form) override {
    CheckTurn();
    // Deleted in a later turn: an event of the dialog may be what ends it.
    const auto later = [](FormDialog* dialog) { dialog->deleteLater(); };
    const std::unique_ptr<FormDialog, decltype(later)> dialog(new FormDialog(form), later);
    dialog->Run();
  }
};

}  // namespace

std::unique_ptr<IFormHost> NewFormHost() { return std::make_unique<FormHostOfQgis>(); }

}  // namespace brelmon::qgis
