// SPDX-License-Identifier: GPL-2.0-or-later
// What all rooms of the QGIS host share: the running QGIS, texts, windows to be owned by.
#pragma once

#include <QString>

#include "platform/text.h"

class QDialog;
class QgisInterface;
class QWidget;

namespace brelmon::qgis {

inline QString ToQt(TextView text) {
  return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<int>(text.size()));
}
inline Text FromQt(const QString& text) {
  return Text(reinterpret_cast<const char16_t*>(text.constData()),
              static_cast<std::size_t>(text.size()));
}

/// The running QGIS while the plug-in is loaded; fails with 91 at any other time.
QgisInterface& Iface();

/// The window that a dialog opening now is to stand above: the topmost form, else QGIS.
QWidget* OwnerWindow();

/// Forms that are shown modally, innermost last. Modeless windows of ours are put above the
/// innermost, so that they take input while QGIS itself doesn't.
void PushModalWindow(QDialog* dialog);
void PopModalWindow(QDialog* dialog);
/// Shows a window above others and with the focus, also one that the user has minimised.
void BringUp(QWidget& window);
/// A window beside QGIS that is to stay above it and above modal forms. Forgotten when destroyed.
void FloatAbove(QWidget* window);

}  // namespace brelmon::qgis
