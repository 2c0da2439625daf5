// SPDX-License-Identifier: GPL-2.0-or-later
// The platform's containers: ordered, keyed without regard to case, checked in their bounds.
#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "platform/object.h"
#include "platform/text.h"

namespace brelmon {

struct NoCaseLess {
  bool operator()(const Text& left, const Text& right) const {
    return CompareNoCase(left, right) < 0;
  }
};

/// Values in order of addition, some under keys. Positions count from 1.
template <class T>
class Collection {
 public:
  std::int32_t Count() const { return static_cast<std::int32_t>(items_.size()); }
  void Add(T item) { items_.push_back({std::move(item), {}, false}); }
  /// A key that stands already fails with 457.
  void Add(T item, const Text& key, std::int32_t line = __builtin_LINE(),
           const char* file = __builtin_FILE()) {
    if (!keys_.emplace(key, items_.size()).second) Raise(failure::kDuplicateKey, line, file);
    items_.push_back({std::move(item), key, true});
  }
  /// An absent key fails with 5.
  const T& Item(const Text& key, std::int32_t line = __builtin_LINE(),
                const char* file = __builtin_FILE()) const {
    const auto hit = keys_.find(key);
    if (hit == keys_.end()) Raise(failure::kInvalidCall, line, file);
    return items_[hit->second].value;
  }
  /// A position out of bounds fails with 9.
  const T& Item(std::int32_t position, std::int32_t line = __builtin_LINE(),
                const char* file = __builtin_FILE()) const {
    return items_[Offset(position, line, file)].value;
  }
  void Remove(std::int32_t position, std::int32_t line = __builtin_LINE(),
              const char* file = __builtin_FILE()) {
    const std::size_t gone = Offset(position, line, file);
    if (items_[gone].keyed) keys_.erase(items_[gone].key);
    items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(gone));
    for (auto& [key, at] : keys_) at -= at > gone ? 1 : 0;
  }
  bool Has(const Text& key) const { return keys_.count(key) != 0; }

 private:
  struct Entry {
    T value;
    Text key;
    bool keyed;
  };
  std::size_t Offset(std::int32_t position, std::int32_t line, const char* file) const {
    if (position < 1 || position > Count()) Raise(failure::kSubscript, line, file);
    return static_cast<std::size_t>(position) - 1;
  }
  std::vector<Entry> items_;
  std::map<Text, std::size_t, NoCaseLess> keys_;
};

/// Objects in order, positions from 0.
class IVariantArray : public virtual IObject {
 public:
  std::int32_t Count() const { return static_cast<std::int32_t>(elements_.size()); }
  void Add(Ref<IObject> element) { elements_.push_back(std::move(element)); }
  /// An index out of bounds fails with 9.
  const Ref<IObject>& Element(std::int32_t index, std::int32_t line = __builtin_LINE(),
                              const char* file = __builtin_FILE()) const {
    if (index < 0 || index >= Count()) Raise(failure::kSubscript, line, file);
    return elements_[static_cast<std::size_t>(index)];
  }

 private:
  std::vector<Ref<IObject>> elements_;
};

/// An element of a plain array by index from 0; out of bounds fails with 9.
template <class Array>
auto& At(Array& array, std::int32_t index, std::int32_t line = __builtin_LINE(),
         const char* file = __builtin_FILE()) {
  if (index < 0 || static_cast<std::size_t>(index) >= array.size())
    Raise(failure::kSubscript, line, file);
  return array[static_cast<std::size_t>(index)];
}

}  // namespace brelmon
