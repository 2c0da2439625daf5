// SPDX-License-Identifier: GPL-2.0-or-later
// The looks of controls in Qt's terms.
#include "hosts/qgis/view/look.h"

#include <qgisinterface.h>

#include <QApplication>
#include <QDialog>
#include <QFontDatabase>
#include <QPalette>
#include <QWidget>
#include <algorithm>

#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/session.h"
#include "hosts/qgis/view/pictures.h"

namespace brelmon::qgis {
namespace {

QColor ColourOf(Colour colour) {
  return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

/// The ground that was painted last, and what it was painted with.
struct Ground {
  QColor colour;
  QString sheets;
  qint64 palette = 0;
};

/// The same hue, light enough to be read on a dark ground.
QColor ReadableOn(const QColor& ground, const QColor& colour) {
  if (!IsDark(ground) || colour.lightness() > 160) return colour;
  return QColor::fromHsl(std::max(0, colour.hslHue()), colour.hslSaturation(), 180);
}

struct Colours {
  QColor fore, back;  // invalid: the system's

  static Colours Of(Control& control) {
    Colours colours;
    if (control.BackColor() != colour::kDefault) colours.back = ColourOf(control.BackColor());
    const QColor ground = colours.back.isValid() ? colours.back : GroundColour();
    if (control.ForeColor() != colour::kDefault) {
      colours.fore = ReadableOn(ground, ColourOf(control.ForeColor()));
    } else if (colours.back.isValid() && IsDark(GroundColour()) != IsDark(ground)) {
      colours.fore = IsDark(ground) ? Qt::white : Qt::black;
    }
    return colours;
  }
};

/// QGIS's own themes are style sheets, which pass by a palette and give labels a margin.
void SetStyleRules(const Colours& colours, bool caption, QWidget& widget) {
  QString rules;
  if (!qApp->styleSheet().isEmpty()) {
    if (caption) rules += QStringLiteral("padding:0;margin:0;border:0;");
    if (colours.fore.isValid()) rules += QStringLiteral("color:%1;").arg(colours.fore.name());
    if (colours.back.isValid()) {
      rules += QStringLiteral("background-color:%1;").arg(colours.back.name());
    }
  }
  if (widget.styleSheet() != rules) widget.setStyleSheet(rules);
}

void SetColours(Control& control, QWidget& widget) {
  const Colours colours = Colours::Of(control);
  QPalette palette;
  if (colours.fore.isValid()) {
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
      palette.setColor(role, colours.fore);
    }
  }
  if (colours.back.isValid()) {
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button}) {
      palette.setColor(role, colours.back);
    }
  }
  const ControlKind kind = control.Kind();
  const bool caption = kind == ControlKind::Label || kind == ControlKind::PictureBox;
  widget.setAutoFillBackground((caption || kind == ControlKind::Frame) && colours.back.isValid());
  widget.setPalette(palette);
  SetStyleRules(colours, caption, widget);
}

}  // namespace

// Grounds of middle grey go with dark letters.
bool IsDark(const QColor& colour) { return colour.lightness() < 100; }

// The palette says nothing of it where a theme is a style sheet: a dialog is painted and looked at.
QColor GroundColour() {
  Ground& known = Session::Running().Of<Ground>();
  QWidget* main = Iface().mainWindow();
  const QString sheets = qApp->styleSheet() + main->styleSheet();
  const qint64 palette = QApplication::palette().cacheKey();
  if (known.colour.isValid() && known.sheets == sheets && known.palette == palette) {
    return known.colour;
  }
  QDialog probe(main);
  probe.resize(8, 8);
  known = {probe.grab().toImage().pixelColor(4, 4), sheets, palette};
  return known.colour;
}

QFont FontOf(const Font& font, const QFont& base) {
  QFont result = base;
  const QString family = ToQt(font.Name);
  if (!family.isEmpty() && QFontDatabase().hasFamily(family)) result.setFamily(family);
  // Sizes are meant against a system font of 8 points.
  if (font.Size > 0) result.setPointSizeF(base.pointSizeF() * font.Size / 8.0);
  result.setBold(font.Bold);
  result.setUnderline(font.Underline);
  return result;
}

void ShowLook(Control& control, QWidget& widget) {
  widget.setToolTip(ToQt(control.ToolTipText()));
  widget.setAccessibleName(ToQt(control.AccessibleName()));
  widget.setAccessibleDescription(ToQt(control.ToolTipText()));
  widget.setFont(FontOf(control.Font(), widget.parentWidget()->window()->font()));
  SetColours(control, widget);
  const Picture& icon = control.MouseIcon();
  if (control.MousePointer() == Pointer::Hourglass) {
    widget.setCursor(Qt::WaitCursor);
  } else if (control.MousePointer() == Pointer::Custom && icon) {
    widget.setCursor(CursorOf(icon->Bytes));
  } else {
    widget.unsetCursor();
  }
}

void ShowState(Control& control, QWidget& widget) {
  widget.setEnabled(control.Enabled());
  widget.setVisible(control.Visible());
}

QString PlainCaption(const Text& caption) {
  QString plain;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == u'&' && ++i == caption.size()) break;
    plain += QChar(caption[i]);
  }
  return plain;
}

bool HasAccelerator(const Text& caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != u'&') continue;
    if (caption[i + 1] != u'&') return true;
    ++i;
  }
  return false;
}

}  // namespace brelmon::qgis
