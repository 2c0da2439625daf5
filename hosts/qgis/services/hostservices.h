// SPDX-License-Identifier: GPL-2.0-or-later
// The set of services that the plug-in hands to the component.
#pragma once

#include <memory>

#include "platform/services.h"

namespace brelmon::qgis {

class HostServices {
 public:
  virtual ~HostServices() = default;
  /// Valid as long as this object lives.
  virtual Services Set() = 0;
  static std::unique_ptr<HostServices> Make();
};

}  // namespace brelmon::qgis
