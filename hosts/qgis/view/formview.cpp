// SPDX-License-Identifier: GPL-2.0-or-later
// Building a form's widgets and keeping them up to date.
#include "hosts/qgis/view/formview.h"

#include <QKeyEvent>
#include <QLabel>
#include <algorithm>
#include <cmath>

#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/services/errordialog.h"
#include "hosts/qgis/view/look.h"

namespace brelmon::qgis {

FormView::FormView(Form& form, QWidget* parent, std::function<void()> changed,
                   std::function<void()> closed)
    : QWidget(parent),
      form_(form),
      keep_(form.weak_from_this()),
      managed_(!keep_.expired()),
      changedHook_(std::move(changed)),
      closedHook_(std::move(closed)),
      scale_(logicalDpiX() / 96.0 / kTwipsPerPixel) {
  setMouseTracking(true);
  form_.EnsureLoaded();
  Build();
  form_.SetView(this);
}

FormView::~FormView() {
  Detach();
  // Widgets go before the views that they call.
  qDeleteAll(findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
}

void FormView::Detach() {
  if (Open() && form_.View() == this) form_.SetView(nullptr);
  closed_ = true;
}

bool FormView::Open() const { return !closed_ && (!managed_ || !keep_.expired()); }

void FormView::Do(const std::function<void()>& deed) {
  if (!Open()) return;
  const auto alive = keep_.lock();
  InTurn(deed);
}

void FormView::Build() {
  for (Control* control : form_.Controls()) AddControl(*control);
  SetBuddies();
  for (Shown& shown : shown_) ShowAspects(shown, Aspects::All());
  FitScale();
  PlaceAll();
  // What is small lies above what is large: a box behind a box is a frame around it.
  std::vector<QWidget*> widgets;
  for (const Shown& shown : shown_) widgets.push_back(&shown.view->Widget());
  const auto area = [](const QWidget* widget) { return widget->width() * widget->height(); };
  std::stable_sort(widgets.begin(), widgets.end(), [&](const QWidget* one, const QWidget* other) {
    return area(one) > area(other);
  });
  for (QWidget* widget : widgets) widget->raise();
}

void FormView::AddControl(Control& control) {
  if (index_.count(&control)) return;
  QWidget* parent = this;
  if (Control* frame = control.ContainerControl()) {
    AddControl(*frame);
    parent = &Find(*frame)->view->Widget();
  }
  auto view = NewControlView(control, *this, parent);
  view->Widget().setObjectName(ToQt(control.Name()));
  view->Widget().installEventFilter(this);
  index_[&control] = shown_.size();
  shown_.push_back({&control, std::move(view), {}});
}

// A label's accelerator leads to the next control in the tab order.
void FormView::SetBuddies() {
  for (Shown& label : shown_) {
    if (label.control->Kind() != ControlKind::Label || !HasAccelerator(label.control->Caption())) {
      continue;
    }
    Shown* next = nullptr;
    for (Shown& other : shown_) {
      if (other.view->Widget().focusPolicy() == Qt::NoFocus ||
          other.control->TabIndex() <= label.control->TabIndex()) {
        continue;
      }
      if (!next || other.control->TabIndex() < next->control->TabIndex()) next = &other;
    }
    if (next) static_cast<QLabel&>(label.view->Widget()).setBuddy(&next->view->Widget());
  }
}

FormView::Shown* FormView::Find(const Control& control) {
  const auto hit = index_.find(&control);
  return hit == index_.end() ? nullptr : &shown_[hit->second];
}

Control* FormView::ControlOf(const QObject* widget) {
  for (const Shown& shown : shown_) {
    if (&shown.view->Widget() == widget) return shown.control;
  }
  return nullptr;
}

void FormView::ControlChanged(Control& control, Aspect aspect) {
  Shown* shown = Find(control);
  if (!shown || !Open()) return;
  if (aspect == Aspect::Focus) return ShowFocus();
  if (shown->view->Urgent(aspect)) {
    Aspects now;
    now.Add(aspect);
    return ShowAspects(*shown, now);
  }
  shown->dirty.Add(aspect);
  if (!timer_) timer_ = startTimer(0);
}

void FormView::timerEvent(QTimerEvent*) {
  killTimer(timer_);
  timer_ = 0;
  Flush();
}

void FormView::Flush() {
  bool captions = false;
  for (Shown& shown : shown_) {
    if (!Open()) return;
    if (!shown.dirty.Any()) continue;
    const Aspects dirty = std::exchange(shown.dirty, Aspects());
    ShowAspects(shown, dirty);
    captions = captions || dirty.Has(Aspect::Caption) || dirty.Has(Aspect::Look);
    if (dirty.Has(Aspect::Geometry)) Place(shown);
  }
  if (!captions) return;
  for (Shown& shown : shown_) {
    shown.view->Widget().setAccessibleName(ToQt(shown.control->AccessibleName()));
  }
  if (Fits(scale_)) return;
  FitScale();
  PlaceAll();
  changedHook_();
}

void FormView::ShowAspects(Shown& shown, const Aspects& aspects) {
  if (aspects.Has(Aspect::Look)) ShowLook(*shown.control, shown.view->Widget());
  if (aspects.Has(Aspect::State)) ShowState(*shown.control, shown.view->Widget());
  shown.view->Update(aspects);
}

void FormView::ShowFocus() {
  Control* control = form_.Focused();
  Shown* shown = control ? Find(*control) : nullptr;
  if (!shown || shown->view->Widget().hasFocus()) return;
  // Its state may have changed in this very turn.
  ShowState(*control, shown->view->Widget());
  shown->view->Widget().setFocus(Qt::OtherFocusReason);
}

void FormView::FormChanged() {
  if (Open() && !resizing_) changedHook_();
}

void FormView::FormClosed() {
  if (closed_) return;
  closed_ = true;
  form_.SetView(nullptr);
  closedHook_();
}

}  // namespace brelmon::qgis
