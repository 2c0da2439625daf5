// SPDX-License-Identifier: GPL-2.0-or-later
// The component's library: loading, handing over services, asking for classes.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "platform/component.h"

namespace brelmon::host {

class Component {
 public:
  /// Lets go of the services, here and there; the library stays loaded.
  virtual ~Component() = default;

  /// A new object of the class registered under "BrelmonOpenTable.cmdStats" and the like. A name
  /// that is not registered, or a class that the library refuses, fails with 429 and says which.
  virtual Ref<IObject> CreateObject(const Text& progId) = 0;
  /// The bytes of a picture handle; empty if unknown.
  virtual std::string PictureBytes(std::int32_t handle) = 0;
  virtual std::string PictureDrawing(std::int32_t handle) = 0;
  /// Whether no object of the component is alive.
  virtual bool CanUnload() = 0;

  /// Where the library is: `way` from `folder`, where whoever loads it stands. In a build with
  /// tests BRELMON_COMPONENT of the environment may name another. An absolute path; whether it can
  /// be loaded is not looked at.
  static std::string Find(const std::filesystem::path& folder, const std::filesystem::path& way);

  /// Loads `libraryPath` (a system path), makes `services` the set of the component and of the
  /// program that loads it, as long as this object lives, and registers the classes. Throws
  /// std::runtime_error with the reason where the library can't be loaded, isn't the component, or
  /// was built against another platform.
  static std::unique_ptr<Component> Load(const std::string& libraryPath, const Services& services);
};

}  // namespace brelmon::host
