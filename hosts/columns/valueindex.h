// SPDX-License-Identifier: GPL-2.0-or-later
// Distinct values, each with the number under which it was first met.
#pragma once

#include <bit>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "hosts/columns/columnbuffer.h"

namespace brelmon::columns {

/// Open addressing over half a hash and a number, so that half a million texts are found with
/// hardly a look at another text. At most 2^32 - 2 values.
template <class Value, class Hash, class Keep>
class ValueIndex {
 public:
  /// From 0, in the order in which the values came; a new one is kept.
  std::size_t Of(Value value) {
    if (values_.size() * 2 >= slots_.size()) Grow();
    const std::uint64_t half = static_cast<std::uint64_t>(Hash()(value)) & ~kNumber;
    std::size_t place = PlaceOf(half);
    while (slots_[place] != 0) {
      const auto number = static_cast<std::size_t>(slots_[place] & kNumber);
      if ((slots_[place] & ~kNumber) == half && values_[number - 1] == value) return number - 1;
      if (++place == slots_.size()) place = 0;
    }
    values_.push_back(keep_(value));
    slots_[place] = half | values_.size();
    return values_.size() - 1;
  }
  const std::vector<Value>& Values() const { return values_; }

 private:
  using Slot = std::uint64_t;  // 0 is free
  static constexpr std::uint64_t kNumber = 0xFFFFFFFF;

  /// The slots are a power of two.
  std::size_t PlaceOf(std::uint64_t half) const { return (half >> 32) & (slots_.size() - 1); }
  void Grow() {
    std::vector<Slot> old(std::max<std::size_t>(slots_.size() * 2, 64));
    old.swap(slots_);
    for (const Slot slot : old) {
      if (slot == 0) continue;
      std::size_t place = PlaceOf(slot & ~kNumber);
      while (slots_[place] != 0) place = (place + 1) & (slots_.size() - 1);
      slots_[place] = slot;
    }
  }

  std::vector<Value> values_;
  std::vector<Slot> slots_;
  Keep keep_;
};

struct KeepText {
  std::string_view operator()(std::string_view text) { return room.Put(text); }
  TextRoom room;
};
struct KeepNumber {
  double operator()(double number) const { return number; }
};
/// The bits of a double, well spread.
struct HashNumber {
  std::uint64_t operator()(double number) const {
    std::uint64_t bits = std::bit_cast<std::uint64_t>(number) * 0x9E3779B97F4A7C15u;
    return (bits ^ (bits >> 32)) * 0xD6E8FEB86659FD93u;
  }
};

/// UTF-8; the texts are copied.
using TextIndex = ValueIndex<std::string_view, std::hash<std::string_view>, KeepText>;
/// Neither NaN nor a negative zero.
using NumberIndex = ValueIndex<double, HashNumber, KeepNumber>;

}  // namespace brelmon::columns
