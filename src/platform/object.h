// SPDX-License-Identifier: GPL-2.0-or-later
// Objects of the host: shared references, questions of what they offer, identity.
#pragma once

#include <memory>
#include <type_traits>
#include <utility>

#include "platform/failure.h"

namespace brelmon {

/// How many objects this library or program has made that still live. All of them live on the
/// user-interface thread.
inline long& LiveObjects() {
  static long count = 0;
  return count;
}

/// Root of every interface; derived from virtually, so that an object is one object.
class IObject {
 public:
  IObject() { ++LiveObjects(); }
  virtual ~IObject() { --LiveObjects(); }
  IObject(const IObject&) = delete;
  IObject& operator=(const IObject&) = delete;
};

/// A shared reference that may be unset. Using an unset one fails with 91 instead of crashing.
template <class T>
class Ref {
 public:
  Ref() = default;
  Ref(std::nullptr_t) {}
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  Ref(std::shared_ptr<U> object) : object_(std::move(object)) {}
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  Ref(const Ref<U>& other) : object_(other.Shared()) {}

  explicit operator bool() const { return object_ != nullptr; }
  T* operator->() const { return &**this; }
  T& operator*() const {
    if (!object_) Raise(failure::kObjectNotSet, 0);
    return *object_;
  }
  T* Get() const { return object_.get(); }
  const std::shared_ptr<T>& Shared() const { return object_; }
  void Reset() { object_.reset(); }

  /// Does the object offer U? An unset reference offers nothing.
  template <class U>
  bool Offers() const {
    return dynamic_cast<U*>(object_.get()) != nullptr;
  }
  /// The object's U; an unset reference stays unset, an object without U fails with 13.
  template <class U>
  Ref<U> As(std::int32_t line = __builtin_LINE(), const char* file = __builtin_FILE()) const {
    if (!object_) return {};
    auto cast = std::dynamic_pointer_cast<U>(object_);
    if (!cast) Raise(failure::kTypeMismatch, line, file);
    return Ref<U>(std::move(cast));
  }
  /// The object's U, or unset where it has none.
  template <class U>
  Ref<U> TryAs() const {
    return Ref<U>(std::dynamic_pointer_cast<U>(object_));
  }

 private:
  std::shared_ptr<T> object_;
};

/// Identity is the object's, not the interface's. Two unset references are the same.
template <class T, class U>
bool Same(const Ref<T>& left, const Ref<U>& right) {
  const void* one = left ? dynamic_cast<const void*>(left.Get()) : nullptr;
  const void* other = right ? dynamic_cast<const void*>(right.Get()) : nullptr;
  return one == other;
}

template <class T, class... Args>
Ref<T> New(Args&&... args) {
  return Ref<T>(std::make_shared<T>(std::forward<Args>(args)...));
}

/// An interface identifier that a tool hands to the host.
struct UID : public virtual IObject {
  UID() = default;
  explicit UID(Text value) : Value(std::move(value)) {}
  Text Value;
};

}  // namespace brelmon
