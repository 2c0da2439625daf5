// SPDX-License-Identifier: GPL-2.0-or-later
// Listens to whatever of QGIS the rules of commands depend on.
#pragma once

#include <functional>
#include <memory>

class QgisInterface;

namespace brelmon::qgis {

class Watch {
 public:
  virtual ~Watch() = default;
  /// `changed` runs at each change, as long as the watch lives.
  static std::unique_ptr<Watch> Start(QgisInterface& iface, std::function<void()> changed);
};

}  // namespace brelmon::qgis
