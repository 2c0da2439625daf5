// SPDX-License-Identifier: GPL-2.0-or-later
// Views of labels, pictures and frames.
#include <QGroupBox>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/view/look.h"
#include "hosts/qgis/view/pictures.h"
#include "hosts/qgis/view/views.h"

namespace brelmon::qgis {
namespace {

/// A label widget that hands clicks and moves on. Where nobody listens, they go to the form.
class ClickableLabel : public QLabel {
 public:
  using QLabel::QLabel;
  std::function<void()> click, move;

 protected:
  void mousePressEvent(QMouseEvent* event) override {
    pressed_ = event->button() == Qt::LeftButton;
    event->setAccepted(click != nullptr);
  }
  void mouseReleaseEvent(QMouseEvent* event) override {
    const bool here = pressed_ && rect().contains(event->pos());
    pressed_ = false;
    if (here && click) click();
  }
  void mouseMoveEvent(QMouseEvent* event) override {
    event->setAccepted(move != nullptr);
    if (move) move();
  }
  void paintEvent(QPaintEvent* event) override {
    QLabel::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Space && click && focusPolicy() != Qt::NoFocus) return click();
    QLabel::keyPressEvent(event);
  }

 private:
  bool pressed_ = false;
};

class LabelView : public ControlView {
 public:
  LabelView(Label& label, IFormSurface& surface, QWidget* parent)
      : label_(label), widget_(*new ClickableLabel(parent)) {
    widget_.setWordWrap(true);
    widget_.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    widget_.setTextFormat(Qt::PlainText);
    widget_.setMouseTracking(true);
    if (label.Click) {
      widget_.setFocusPolicy(Qt::StrongFocus);
      widget_.click = [this, &surface] { surface.Do([this] { label_.UserClick(); }); };
    }
    if (label.MouseMove) {
      widget_.move = [this, &surface] { surface.Do([this] { label_.UserMouseMove(); }); };
    }
  }
  QWidget& Widget() override { return widget_; }
  void Update(const Aspects& aspects) override {
    if (aspects.Has(Aspect::Caption)) {
      const Text caption = label_.Caption();
      widget_.setText(widget_.buddy() ? ToQt(caption) : PlainCaption(caption));
    }
  }
  QSize Needed(int width) const override {
    const QFontMetrics metrics(widget_.font());
    const QString text = PlainCaption(label_.Caption());
    return metrics.boundingRect(QRect(0, 0, width, 10000), Qt::TextWordWrap, text).size();
  }

 private:
  Label& label_;
  ClickableLabel& widget_;
};

class PictureView : public ControlView {
 public:
  PictureView(PictureBox& picture, IFormSurface& surface, QWidget* parent)
      : picture_(picture), surface_(surface), widget_(*new ClickableLabel(parent)) {
    if (!picture.Click) return;
    widget_.setFocusPolicy(Qt::StrongFocus);
    widget_.click = [this, &surface] { surface.Do([this] { picture_.UserClick(); }); };
  }
  QWidget& Widget() override { return widget_; }
  void Update(const Aspects& aspects) override {
    if (!aspects.Has(Aspect::Look)) return;
    if (const brelmon::Picture& picture = picture_.Picture()) {
      widget_.setAccessibleDescription(ToQt(picture->Description));
    }
    Rescale();
  }
  void Rescale() override {
    const brelmon::Picture& picture = picture_.Picture();
    if (!picture) return widget_.setPixmap(QPixmap());
    const QSize natural = NaturalSize(*picture);
    const auto pixels = [this](int length) {
      return surface_.Pixels(static_cast<Twips>(length * kTwipsPerPixel));
    };
    const double ratio = widget_.devicePixelRatioF();
    QPixmap pixmap =
        PixmapOf(*picture, QSize(pixels(natural.width()), pixels(natural.height())) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    widget_.setPixmap(pixmap);
  }

 private:
  PictureBox& picture_;
  IFormSurface& surface_;
  ClickableLabel& widget_;
};

/// A line around the frame's whole place with the title on it, so that what stands in the frame
/// stands where its form puts it, whatever room a style gives to titles.
class FrameWidget : public QGroupBox {
 public:
  using QGroupBox::QGroupBox;

 protected:
  void paintEvent(QPaintEvent*) override {
    constexpr int kTitleLeft = 8, kTitleGap = 3;
    QPainter painter(this);
    const QFontMetrics& metrics = fontMetrics();
    const QString text = title();
    const int top = text.isEmpty() ? 0 : metrics.height() / 2;
    const QRect place(kTitleLeft, 0, metrics.horizontalAdvance(text), metrics.height());
    if (!text.isEmpty()) {
      painter.setClipRegion(QRegion(rect()) - place.adjusted(-kTitleGap, 0, kTitleGap, 0));
    }
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRoundedRect(rect().adjusted(0, top, -1, -1), 2, 2);
    painter.setClipping(false);
    style()->drawItemText(&painter, place, int{Qt::TextShowMnemonic} | int{Qt::AlignLeft},
                          palette(), isEnabled(), text, QPalette::WindowText);
  }
};

class FrameView : public ControlView {
 public:
  FrameView(Frame& frame, QWidget* parent) : frame_(frame), widget_(*new FrameWidget(parent)) {
    widget_.setMouseTracking(true);
  }
  QWidget& Widget() override { return widget_; }
  void Update(const Aspects& aspects) override {
    if (aspects.Has(Aspect::Caption)) widget_.setTitle(ToQt(frame_.Caption()));
  }
  QSize Needed(int) const override {
    const QFontMetrics metrics(widget_.font());
    const QString title = PlainCaption(frame_.Caption());
    return title.isEmpty() ? QSize(0, 0) : QSize(metrics.horizontalAdvance(title) + 16, 0);
  }

 private:
  Frame& frame_;
  FrameWidget& widget_;
};

}  // namespace

std::unique_ptr<ControlView> NewLabelView(Label& label, IFormSurface& surface, QWidget* parent) {
  return std::make_unique<LabelView>(label, surface, parent);
}

std::unique_ptr<ControlView> NewPictureView(PictureBox& picture, IFormSurface& surface,
                                            QWidget* parent) {
  return std::make_unique<PictureView>(picture, surface, parent);
}

std::unique_ptr<ControlView> NewFrameView(Frame& frame, QWidget* parent) {
  return std::make_unique<FrameView>(frame, parent);
}

}  // namespace brelmon::qgis
