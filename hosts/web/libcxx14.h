// SPDX-License-Identifier: GPL-2.0-or-later
// What libc++ 14 lacks of C++20, put before every source of the browser's build.
#pragma once

#ifdef __cplusplus
#include <version>
#if defined(_LIBCPP_VERSION) && _LIBCPP_VERSION < 15000
#include <algorithm>
#include <bit>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>

_LIBCPP_BEGIN_NAMESPACE_STD

inline to_chars_result to_chars(char* first, char* last, double value, chars_format format,
                                int places) {
  const char* pattern = format == chars_format::fixed        ? "%.*f"
                        : format == chars_format::scientific ? "%.*e"
                                                             : "%.*g";
  const int length = snprintf(nullptr, 0, pattern, places, value);
  if (last - first < length) return {last, errc::value_too_large};
  string text(static_cast<size_t>(length) + 1, '\0');
  snprintf(text.data(), text.size(), pattern, places, value);
  memcpy(first, text.data(), static_cast<size_t>(length));
  return {first + length, errc()};
}

#ifndef __cpp_lib_bit_cast
template <class To, class From>
constexpr To bit_cast(const From& from) noexcept {
  return __builtin_bit_cast(To, from);
}
#endif

template <class Array>
unique_ptr<Array> make_unique_for_overwrite(size_t size) {
  return unique_ptr<Array>(new remove_extent_t<Array>[size]);
}

/// The shortest text that reads back as the same number; plain digits where they are shorter.
inline to_chars_result to_chars(char* first, char* last, double value) {
  constexpr int kEnough = 17;
  char text[32];
  int length = 0;
  for (int digits = 1; digits <= kEnough; ++digits) {
    length = snprintf(text, sizeof text, "%.*g", digits, value);
    if (strtod(text, nullptr) == value) break;
  }
  char plain[32];
  const int whole = fabs(value) < 1e17 ? snprintf(plain, sizeof plain, "%.0f", value) : 0;
  const bool plainer = strchr(text, 'e') != nullptr && whole > 0 && whole <= length &&
                       strtod(plain, nullptr) == value;
  const char* chosen = plainer ? plain : text;
  const int size = plainer ? whole : length;
  if (last - first < size) return {last, errc::value_too_large};
  memcpy(first, chosen, static_cast<size_t>(size));
  return {first + size, errc()};
}

/// Unlike strtod, takes neither leading blanks, a plus sign nor hexadecimal digits.
inline from_chars_result from_chars(const char* first, const char* last, double& value) {
  const char* digits = first != last && *first == '-' ? first + 1 : first;
  const bool begins = digits != last && strchr(".0123456789iInN", *digits) != nullptr && *digits;
  if (!begins) return {first, errc::invalid_argument};
  const bool hexadecimal = last - digits > 1 && digits[0] == '0' && (digits[1] | 32) == 'x';
  const string text(first, hexadecimal ? digits + 1 : last);
  char* end = nullptr;
  errno = 0;
  const double read = strtod(text.c_str(), &end);
  if (end == text.c_str()) return {first, errc::invalid_argument};
  const char* stop = first + (end - text.c_str());
  if (errno == ERANGE && (isinf(read) || read == 0)) return {stop, errc::result_out_of_range};
  value = read;
  return {stop, errc()};
}

namespace ranges {

template <class Range, class T, class Projection = identity>
constexpr auto find(Range&& range, const T& value, Projection projection = {}) {
  return std::find_if(std::begin(range), std::end(range),
                      [&](const auto& each) { return std::invoke(projection, each) == value; });
}

template <class Range, class T, class Projection = identity>
constexpr auto count(Range&& range, const T& value, Projection projection = {}) {
  return std::count_if(std::begin(range), std::end(range),
                       [&](const auto& each) { return std::invoke(projection, each) == value; });
}

template <class Range, class Test>
constexpr auto find_if(Range&& range, Test test) {
  return std::find_if(std::begin(range), std::end(range), test);
}

template <class Range, class Test>
constexpr auto find_if_not(Range&& range, Test test) {
  return std::find_if_not(std::begin(range), std::end(range), test);
}

template <class Range, class Out, class Deed>
constexpr auto transform(Range&& range, Out out, Deed deed) {
  return std::transform(std::begin(range), std::end(range), out,
                        [&](const auto& each) { return std::invoke(deed, each); });
}

template <class Range, class Test>
constexpr bool all_of(Range&& range, Test test) {
  return std::all_of(std::begin(range), std::end(range), test);
}

template <class Range, class Test>
constexpr bool any_of(Range&& range, Test test) {
  return std::any_of(std::begin(range), std::end(range), test);
}

template <class One, class Other, class Test = std::equal_to<>, class OneProjection = identity,
          class OtherProjection = identity>
constexpr bool equal(One&& one, Other&& other, Test test = {}, OneProjection ofOne = {},
                     OtherProjection ofOther = {}) {
  return std::equal(std::begin(one), std::end(one), std::begin(other), std::end(other),
                    [&](const auto& a, const auto& b) {
                      return std::invoke(test, std::invoke(ofOne, a), std::invoke(ofOther, b));
                    });
}

template <class Range, class T>
constexpr void replace(Range&& range, const T& from, const T& to) {
  std::replace(std::begin(range), std::end(range), from, to);
}

template <class Range, class T, class Order = less, class Projection = identity>
constexpr auto lower_bound(Range&& range, const T& value, Order order = {},
                           Projection projection = {}) {
  return std::lower_bound(
      std::begin(range), std::end(range), value,
      [&](const auto& each, const T& key) { return order(std::invoke(projection, each), key); });
}

}  // namespace ranges

_LIBCPP_END_NAMESPACE_STD
#endif
#endif
