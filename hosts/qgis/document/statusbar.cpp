// SPDX-License-Identifier: GPL-2.0-or-later
// Progress on QGIS's status bar, drawn at once.
#include "hosts/qgis/document/statusbar.h"

#include <qgisinterface.h>
#include <qgsstatusbar.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>

#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/userturn.h"

namespace brelmon::qgis {
namespace {

class StatusBar : public virtual IStatusBar {
 public:
  ~StatusBar() override { delete widget_; }

  void ShowProgressBar(const Text& message, std::int32_t minimum, std::int32_t maximum,
                       std::int32_t step, bool) override {
    if (!widget_) Build();
    step_ = step;
    value_ = minimum;
    label_->setText(ToQt(message));
    bar_->setRange(minimum, maximum > minimum ? maximum : minimum + 1);
    bar_->setValue(minimum);
    shown_ = Percent();
    widget_->show();
    AtEndOfTurn([widget = widget_] {
      if (widget) widget->hide();
    });
    // The layouts up to the bar place the newcomer now, not in a later turn.
    for (QWidget* at = widget_->parentWidget(); at; at = at->parentWidget()) {
      if (at->layout()) at->layout()->activate();
      if (at == Iface().statusBarIface()) break;
    }
    widget_->layout()->activate();
    widget_->repaint();
  }

  void StepProgressBar() override {
    CheckStep();
    if (!widget_) return;
    value_ += step_;
    if (Percent() == shown_) return;
    shown_ = Percent();
    bar_->setValue(static_cast<int>(value_));
    bar_->repaint();
  }

  // What a stopped run would do with what it has so far comes to nothing here at the latest.
  void HideProgressBar() override {
    if (widget_) widget_->hide();
    CheckTurn();
  }

 private:
  void Build() {
    widget_ = new QWidget;
    widget_->setObjectName(QStringLiteral("BrelmonProgress"));
    auto* row = new QHBoxLayout(widget_);
    row->setContentsMargins(0, 0, 0, 0);
    label_ = new QLabel(widget_);
    label_->setTextFormat(Qt::PlainText);
    bar_ = new QProgressBar(widget_);
    bar_->setMaximumHeight(16);
    bar_->setFixedWidth(160);
    bar_->setAccessibleName(QObject::tr("Progress"));
    row->addWidget(label_);
    row->addWidget(bar_);
    Iface().statusBarIface()->addPermanentWidget(widget_, 0, QgsStatusBar::AnchorLeft);
  }

  std::int64_t Percent() const {
    const std::int64_t span = bar_->maximum() - static_cast<std::int64_t>(bar_->minimum());
    return (value_ - bar_->minimum()) * 100 / span;
  }

  QPointer<QWidget> widget_;
  QLabel* label_ = nullptr;
  QProgressBar* bar_ = nullptr;
  std::int64_t value_ = 0;
  std::int32_t step_ = 1;
  std::int64_t shown_ = -1;
};

}  // namespace

Ref<IStatusBar> NewStatusBar() { return New<StatusBar>(); }

}  // namespace brelmon::qgis
