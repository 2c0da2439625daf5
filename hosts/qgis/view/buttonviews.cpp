// SPDX-License-Identifier: GPL-2.0-or-later
// Views of command buttons, option buttons and check boxes.
#include <QCheckBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>

#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/view/look.h"
#include "hosts/qgis/view/pictures.h"
#include "hosts/qgis/view/views.h"

namespace brelmon::qgis {
namespace {

constexpr int kButtonMargin = 14, kIndicator = 26;

QSize CaptionSize(const QWidget& widget, const Text& caption, int margin) {
  const QFontMetrics metrics(widget.font());
  return {metrics.horizontalAdvance(PlainCaption(caption)) + margin, metrics.height() + 2};
}

class ButtonView : public ControlView {
 public:
  ButtonView(CommandButton& button, IFormSurface& surface, QWidget* parent)
      : button_(button), surface_(surface), widget_(*new QPushButton(parent)) {
    widget_.setAutoDefault(false);
    QObject::connect(&widget_, &QPushButton::clicked, &widget_,
                     [this, &surface] { surface.Do([this] { button_.UserClick(); }); });
  }
  QWidget& Widget() override { return widget_; }
  void Update(const Aspects& aspects) override {
    if (aspects.Has(Aspect::Caption)) widget_.setText(ToQt(button_.Caption()));
    if (aspects.Has(Aspect::State)) widget_.setDefault(button_.Default());
    if (!aspects.Has(Aspect::Look)) return;
    const brelmon::Picture& picture = button_.Picture();
    widget_.setIcon(picture ? IconOf(*picture) : QIcon());
    Rescale();
  }
  void Rescale() override {
    const brelmon::Picture& picture = button_.Picture();
    if (!picture) return;
    const QSize natural = NaturalSize(*picture);
    widget_.setIconSize({surface_.Pixels(static_cast<Twips>(natural.width() * kTwipsPerPixel)),
                         surface_.Pixels(static_cast<Twips>(natural.height() * kTwipsPerPixel))});
  }
  QSize Needed(int) const override {
    return button_.Caption().empty() ? QSize(0, 0)
                                     : CaptionSize(widget_, button_.Caption(), kButtonMargin);
  }

 private:
  CommandButton& button_;
  IFormSurface& surface_;
  QPushButton& widget_;
};

/// Arrow keys walk through the options of a group, choosing as they go.
class OptionWidget : public QRadioButton {
 public:
  using QRadioButton::QRadioButton;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const int key = event->key();
    const bool back = key == Qt::Key_Up || key == Qt::Key_Left;
    if (!back && key != Qt::Key_Down && key != Qt::Key_Right) {
      return QRadioButton::keyPressEvent(event);
    }
    QList<OptionWidget*> group;
    for (QObject* child : parent()->children()) {
      auto* option = dynamic_cast<OptionWidget*>(child);
      if (option && option->isEnabled() && option->isVisible()) group.push_back(option);
    }
    const int count = group.size();
    OptionWidget* next = group[(group.indexOf(this) + (back ? count - 1 : 1)) % count];
    next->setFocus(Qt::TabFocusReason);
    if (next != this) next->click();
  }
};

class OptionView : public ControlView {
 public:
  OptionView(OptionButton& option, IFormSurface& surface, QWidget* parent)
      : option_(option), widget_(*new OptionWidget(parent)) {
    widget_.setAutoExclusive(false);  // the form's controls know their neighbours
    QObject::connect(&widget_, &QRadioButton::clicked, &widget_, [this, &surface] {
      surface.Do([this] { option_.UserClick(); });
      if (surface.Open()) ShowValue();
    });
  }
  QWidget& Widget() override { return widget_; }
  void Update(const Aspects& aspects) override {
    if (aspects.Has(Aspect::Caption)) widget_.setText(ToQt(option_.Caption()));
    if (aspects.Has(Aspect::Value)) ShowValue();
  }
  QSize Needed(int) const override { return CaptionSize(widget_, option_.Caption(), kIndicator); }

 private:
  void ShowValue() {
    const QSignalBlocker silent(widget_);
    widget_.setChecked(option_.Value());
  }
  OptionButton& option_;
  OptionWidget& widget_;
};

class CheckView : public ControlView {
 public:
  CheckView(CheckBox& check, IFormSurface& surface, QWidget* parent)
      : check_(check), widget_(*new QCheckBox(parent)) {
    QObject::connect(&widget_, &QCheckBox::clicked, &widget_, [this, &surface] {
      surface.Do([this] { check_.UserClick(); });
      if (surface.Open()) ShowValue();
    });
  }
  QWidget& Widget() override { return widget_; }
  void Update(const Aspects& aspects) override {
    if (aspects.Has(Aspect::Caption)) widget_.setText(ToQt(check_.Caption()));
    if (aspects.Has(Aspect::Value)) ShowValue();
  }
  QSize Needed(int) const override { return CaptionSize(widget_, check_.Caption(), kIndicator); }

 private:
  void ShowValue() {
    const QSignalBlocker silent(widget_);
    const int value = check_.Value();
    widget_.setTristate(value == 2);
    widget_.setCheckState(value == 2   ? Qt::PartiallyChecked
                          : value == 1 ? Qt::Checked
                                       : Qt::Unchecked);
  }
  CheckBox& check_;
  QCheckBox& widget_;
};

}  // namespace

std::unique_ptr<ControlView> NewButtonView(CommandButton& button, IFormSurface& surface,
                                           QWidget* parent) {
  return std::make_unique<ButtonView>(button, surface, parent);
}

std::unique_ptr<ControlView> NewOptionView(OptionButton& option, IFormSurface& surface,
                                           QWidget* parent) {
  return std::make_unique<OptionView>(option, surface, parent);
}

std::unique_ptr<ControlView> NewCheckView(CheckBox& check, IFormSurface& surface, QWidget* parent) {
  return std::make_unique<CheckView>(check, surface, parent);
}

}  // namespace brelmon::qgis
