// SPDX-License-Identifier: GPL-2.0-or-later
// Sorting by a whole-numbered key, digit by digit from the lowest.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

namespace brelmon {

/// Below this, filling the digits' counts costs more than comparisons do.
inline constexpr std::size_t kWorthDigits = 1500;

/// Sorts `count` elements, at least one, by `keyOf(element)`, an unsigned number, ascending and
/// stable. In time proportional to the count whatever the order is, and with a second array of as
/// many elements. A digit that all keys share takes no pass.
template <class T, class KeyOf>
void SortByDigits(T* values, std::size_t count, KeyOf keyOf) {
  constexpr std::size_t kBits = 11;
  constexpr std::size_t kDigits = (sizeof(keyOf(*values)) * 8 + kBits - 1) / kBits;
  constexpr std::uint32_t kDigit = (1u << kBits) - 1;
  const auto digitOf = [&](const T& value, std::size_t digit) {
    return static_cast<std::uint32_t>(keyOf(value) >> digit * kBits) & kDigit;
  };
  // How many keys have each digit; then where the next element with that digit goes.
  std::array<std::array<std::uint32_t, kDigit + 1>, kDigits> places{};
  for (std::size_t i = 0; i < count; ++i) {
    for (std::size_t digit = 0; digit < kDigits; ++digit)
      ++places[digit][digitOf(values[i], digit)];
  }
  const auto held = std::make_unique_for_overwrite<T[]>(count);
  T* from = values;
  T* to = held.get();
  for (std::size_t digit = 0; digit < kDigits; ++digit) {
    auto& starts = places[digit];
    if (starts[digitOf(from[0], digit)] == count) continue;
    std::uint32_t next = 0;
    for (std::uint32_t& start : starts) next += std::exchange(start, next);
    for (std::size_t i = 0; i < count; ++i) to[starts[digitOf(from[i], digit)]++] = from[i];
    std::swap(from, to);
  }
  if (from != values) std::copy_n(from, count, values);
}

}  // namespace brelmon
