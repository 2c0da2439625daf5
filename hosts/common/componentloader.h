// SPDX-License-Identifier: GPL-2.0-or-later
// The component's library: loading, handing over services, asking for classes.
#pragma once

#include <memory>
#include <string>

#include "platform/component.h"

namespace brelmon::host {

class Component {
 public:
  virtual ~Component() = default;  // lets go of the services; the library stays loaded

  /// A new object of the class registered under "BrelmonOpenTable.cmdStats" and the like. A name
  /// that is not registered, or a class that the library refuses, fails with 429 and says which.
  virtual Ref<IObject> CreateObject(const Text& progId) = 0;
  /// The bytes of a picture handle; empty if unknown.
  virtual std::string PictureBytes(std::int32_t handle) = 0;
  virtual std::string PictureDrawing(std::int32_t handle) = 0;
  /// Whether no object of the component is alive.
  virtual bool CanUnload() = 0;

  /// Loads `libraryPath` (a system path), attaches `services` and registers the classes. Throws
  /// std::runtime_error with the reason where the library can't be loaded or isn't the component.
  static std::unique_ptr<Component> Load(const std::string& libraryPath, const Services& services);
};

}  // namespace brelmon::host
