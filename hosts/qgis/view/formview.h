// SPDX-License-Identifier: GPL-2.0-or-later
// The client area of a form: its controls' widgets, placed, scaled and kept up to date.
#pragma once

#include <QWidget>
#include <map>
#include <memory>

#include "hosts/qgis/view/controlview.h"
#include "toolkit/form.h"

namespace brelmon::qgis {

class FormView : public QWidget, public IFormView, public IFormSurface {
 public:
  /// Loads the form and becomes its view. `changed` runs when caption or size are to be shown
  /// anew, `closed` once when the form hides or unloads.
  FormView(Form& form, QWidget* parent, std::function<void()> changed,
           std::function<void()> closed);
  ~FormView() override;

  // IFormView.
  void ControlChanged(Control& control, Aspect aspect) override;
  void FormChanged() override;
  void FormClosed() override;

  // IFormSurface.
  bool Open() const override;
  void Do(const std::function<void()>& deed) override;
  int Pixels(Twips length) const override;

  /// The form's size in pixels.
  QSize FormSize();
  /// Tells the form of a size that the user gave to its window.
  void UserResize(const QSize& size);
  Twips ToTwips(int pixels) const;
  /// Gives the focus to the widget of the control that has it.
  void ShowFocus();
  /// Nothing of the form is touched from now on.
  void Detach();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  struct Shown {
    Control* control;
    std::unique_ptr<ControlView> view;
    Aspects dirty;
  };
  void Build();
  void AddControl(Control& control);
  void SetBuddies();
  void Flush();
  void ShowAspects(Shown& shown, const Aspects& aspects);
  void Place(Shown& shown);
  void PlaceAll();
  /// Whether every caption can be read at that scale.
  bool Fits(double scale) const;
  void FitScale();
  Shown* Find(const Control& control);
  Control* ControlOf(const QObject* widget);
  void PressEnter();

  Form& form_;
  std::weak_ptr<Form> keep_;
  bool managed_;
  bool closed_ = false;
  std::function<void()> changedHook_, closedHook_;
  double scale_;  // pixels a twip
  std::vector<Shown> shown_;
  std::map<const Control*, std::size_t> index_;
  int timer_ = 0;
  bool resizing_ = false;
};

}  // namespace brelmon::qgis
