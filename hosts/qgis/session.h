// SPDX-License-Identifier: GPL-2.0-or-later
// What the host keeps from the loading of the plug-in to its unloading.
#pragma once

#include <memory>
#include <typeindex>
#include <utility>
#include <vector>

class QgisInterface;

namespace brelmon::qgis {

/// One at a time. Whatever a room must remember between two clicks is a part of it, a type that the
/// room alone knows: made when it is first asked for, gone with the session, last made first.
class Session {
 public:
  explicit Session(QgisInterface& iface);
  virtual ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  /// Fails with 91 while the plug-in isn't loaded.
  static Session& Running();
  static Session* IfRunning();

  QgisInterface& Iface() const { return iface_; }

  template <class Part>
  const std::shared_ptr<Part>& Shared() {
    for (const auto& [type, part] : parts_) {
      if (type == typeid(Part)) return *static_cast<const std::shared_ptr<Part>*>(part.get());
    }
    auto made = std::make_shared<std::shared_ptr<Part>>(std::make_shared<Part>());
    const std::shared_ptr<Part>& part = *made;
    parts_.emplace_back(typeid(Part), std::move(made));
    return part;
  }
  template <class Part>
  Part& Of() {
    return *Shared<Part>();
  }

 private:
  QgisInterface& iface_;
  std::vector<std::pair<std::type_index, std::shared_ptr<void>>> parts_;
};

}  // namespace brelmon::qgis
