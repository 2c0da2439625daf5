// SPDX-License-Identifier: GPL-2.0-or-later
// The component's toolbar and commands as actions of QGIS.
#pragma once

#include <memory>

#include "platform/application.h"

class QgisInterface;

namespace brelmon::host {
class Component;
}

namespace brelmon::qgis {

/// The bar is named "BrelmonTools"; each action bears its command's class name. Commands off the
/// bar stand below them in the menu "Brelmon Tools", by category. All go when this object goes.
class Toolbar {
 public:
  virtual ~Toolbar() = default;
  /// Asks the commands whether they are enabled, once in a later turn of the event loop.
  virtual void AskSoon() = 0;
  static std::unique_ptr<Toolbar> Make(QgisInterface& iface, host::Component& component,
                                       const Ref<IApplication>& application);
};

}  // namespace brelmon::qgis
