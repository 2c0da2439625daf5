// SPDX-License-Identifier: GPL-2.0-or-later
// Modeless frames: shown and hidden, with a view of the form only while they are shown.
#include "hosts/qgis/view/modelessframe.h"

#include <qgisinterface.h>

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPointer>
#include <optional>
#include <vector>

#include "hosts/common/heldform.h"
#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/session.h"
#include "hosts/qgis/userturn.h"
#include "hosts/qgis/view/formview.h"
#include "hosts/qgis/view/formwindow.h"

namespace brelmon::qgis {
namespace {

class FrameWindow : public QWidget {
 public:
  FrameWindow(Form& form, std::function<void()> closedByUser, std::function<void()> gone)
      : QWidget(Iface().mainWindow(), Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                                          Qt::WindowCloseButtonHint | Qt::CustomizeWindowHint),
        form_(form),
        closedByUser_(std::move(closedByUser)),
        area_(new FormArea(*this, form)),
        view_(new FormView(
            form, this, [this] { Fit(); }, std::move(gone))) {
    setObjectName(ToQt(form.Name()));
    area_->Hold(*view_);
  }
  FormView& View() { return *view_; }
  void SetTitle(const Text& caption) {
    title_ = ToQt(caption);
    setWindowTitle(title_);
  }

 protected:
  void closeEvent(QCloseEvent* event) override {
    event->ignore();
    closedByUser_();
  }
  void resizeEvent(QResizeEvent*) override { area_->WindowResized(size()); }
  // With nothing to work with inside, Escape can only mean the window.
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Escape && !form_.Focused()) {
      close();
    } else {
      QWidget::keyPressEvent(event);
    }
  }
  void changeEvent(QEvent* event) override {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
      view_->Do([this] { form_.UserActivate(); });
    }
  }

 private:
  void Fit() {
    area_->Fit();
    if (!title_.isEmpty()) setWindowTitle(title_);
  }

  Form& form_;
  std::function<void()> closedByUser_;
  FormArea* area_;
  FormView* view_;
  QString title_;
};

class ModelessFrame;
using ModelessFrames = std::vector<ModelessFrame*>;

class ModelessFrame : public virtual IModelessFrame,
                      public virtual IWindowPosition,
                      public std::enable_shared_from_this<ModelessFrame> {
 public:
  ModelessFrame() : all_(Session::Running().Shared<ModelessFrames>()) { all_->push_back(this); }
  ~ModelessFrame() override {
    Drop();
    std::erase(*all_, this);
  }

  void Create(const Ref<IObject>& form) override { form_.Take(form); }
  Text Caption() override { return caption_; }
  void SetCaption(const Text& caption) override {
    caption_ = caption;
    if (window_) window_->SetTitle(caption);
  }
  bool Visible() override { return window_ != nullptr; }
  void SetVisible(bool visible) override {
    const auto form = form_.Get();
    if (!visible) {
      Drop();
      form_.Show(false);
      return;
    }
    CheckTurn();
    form_.Show(true);
    if (!window_) Open(*form);
    if (place_) window_->move(*place_);
    FloatAbove(window_);
    BringUp(*window_);
    window_->View().ShowFocus();
  }
  std::int32_t Width() override { return host::HeldForm::Pixels(Measure().width); }
  std::int32_t Height() override { return host::HeldForm::Pixels(Measure().height); }

 private:
  struct Size {
    Twips width, height;
  };
  /// Of the window while it is shown, else of the form.
  Size Measure() const {
    if (window_) {
      const FormView& view = window_->View();
      return {view.ToTwips(window_->width()), view.ToTwips(window_->height())};
    }
    const auto form = form_.Get();
    return {form->Width(), form->Height()};
  }

  void Open(Form& form) {
    window_ = new FrameWindow(
        form,
        [this] {
          const auto alive = shared_from_this();
          if (form_.Lock()) SetVisible(false);
        },
        [this] { Drop(); });
    if (!caption_.empty()) window_->SetTitle(caption_);
    if (place_) return;
    QRect at(QPoint(), window_->size());
    at.moveCenter(Iface().mainWindow()->frameGeometry().center());
    place_ = at.topLeft();
  }
  // Deleted in a later turn: an event of the window may be what ends it.
  void Drop() {
    if (!window_) return;
    FrameWindow* window = window_;
    place_ = window->pos();
    window_.clear();
    window->View().Detach();
    window->hide();
    window->deleteLater();
  }

  const std::shared_ptr<ModelessFrames> all_;
  host::HeldForm form_;
  Text caption_;
  std::optional<QPoint> place_;  // where it stood last
  QPointer<FrameWindow> window_;
};

}  // namespace

Ref<IModelessFrame> NewModelessFrame() { return New<ModelessFrame>(); }

void HideModelessFrames() {
  const ModelessFrames frames = Session::Running().Of<ModelessFrames>();
  for (ModelessFrame* frame : frames) {
    if (frame->Visible()) frame->SetVisible(false);
  }
}

}  // namespace brelmon::qgis
