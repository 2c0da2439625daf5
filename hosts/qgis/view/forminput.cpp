// SPDX-License-Identifier: GPL-2.0-or-later
// What a user does to a form itself: keys, the focus, clicks on its ground.
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollArea>

#include "hosts/qgis/view/formview.h"

namespace brelmon::qgis {

namespace {

/// Scrolls to where the user works.
void ShowInArea(QWidget& widget) {
  for (QWidget* at = widget.parentWidget(); at; at = at->parentWidget()) {
    auto* area = qobject_cast<QScrollArea*>(at);
    if (area && area->widget()) return area->ensureWidgetVisible(&widget, 8, 8);
  }
}

}  // namespace

bool FormView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn && Open()) {
    ShowInArea(*static_cast<QWidget*>(watched));
    Control* control = ControlOf(watched);
    if (control && !control->HasFocus() && control->Usable()) {
      Do([control] { control->SetFocus(); });
    }
  }
  return false;
}

bool FormView::focusNextPrevChild(bool next) {
  if (!Open()) return false;
  const auto order = form_.TabOrder();
  if (order.empty()) return false;
  Control* focused = form_.Focused();
  auto at = std::find(order.begin(), order.end(), focused);
  if (at == order.end() && focused && focused->Kind() == ControlKind::OptionButton) {
    // Any option of a group stands for its one place in the order.
    at = std::find_if(order.begin(), order.end(), [focused](Control* stop) {
      return stop->Kind() == ControlKind::OptionButton &&
             stop->ContainerControl() == focused->ContainerControl();
    });
  }
  const auto count = static_cast<std::ptrdiff_t>(order.size());
  std::ptrdiff_t to = at == order.end() ? (next ? -1 : count) : at - order.begin();
  to = (to + (next ? 1 : count - 1)) % count;
  Control* control = order[static_cast<std::size_t>(to)];
  Find(*control)->view->Widget().setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
  return true;
}

void FormView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    Do([this] { form_.UserEscape(); });
    event->ignore();  // a window without controls closes by it
  } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    PressEnter();
  } else {
    QWidget::keyPressEvent(event);
  }
}

// A button or link that has the focus is clicked by Enter; else the form's default button is.
void FormView::PressEnter() {
  if (!Open()) return;
  Control* focused = form_.Focused();
  Do([this, focused] {
    if (focused && focused->Kind() == ControlKind::CommandButton) {
      static_cast<CommandButton*>(focused)->UserClick();
    } else if (focused && focused->Kind() == ControlKind::Label) {
      static_cast<Label*>(focused)->UserClick();
    } else if (focused && focused->Kind() == ControlKind::PictureBox) {
      static_cast<PictureBox*>(focused)->UserClick();
    } else {
      form_.UserEnter();
    }
  });
}

void FormView::mousePressEvent(QMouseEvent* event) {
  // What a control has let pass was meant for the control.
  if (event->button() != Qt::LeftButton || childAt(event->pos())) return;
  Do([this] { form_.UserClick(); });
}

void FormView::mouseMoveEvent(QMouseEvent* event) {
  if (!childAt(event->pos())) Do([this] { form_.UserMouseMove(); });
}

}  // namespace brelmon::qgis
