// SPDX-License-Identifier: GPL-2.0-or-later
// The component, linked with its host: its classes by the names under which it registers them.
#pragma once

#include "platform/component.h"

namespace brelmon::web {

class Component {
 public:
  /// Hands over the services and registers the classes; they must outlive it.
  explicit Component(const Services& services);
  ~Component();
  Component(const Component&) = delete;
  Component& operator=(const Component&) = delete;

  /// "BrelmonOpenTable.cmdStats" and the like; fails with 429.
  Ref<IObject> CreateObject(const Text& progId);
  std::string PictureBytes(std::int32_t handle);

 private:
  IRegistry* registry_;
  IServiceSink* sink_ = nullptr;
};

}  // namespace brelmon::web
