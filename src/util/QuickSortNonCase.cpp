// SPDX-License-Identifier: GPL-2.0-or-later
// Long ranges by the digits of their keys; short ones, and numbers of which some are none, by
// exchanges around the middle element.
#include "util/QuickSortNonCase.h"

#include <algorithm>
#include <bit>
#include <functional>

#include "frame/guard.h"
#include "platform/collection.h"
#include "util/radixsort.h"
#include "util/textorder.h"

namespace brelmon {
namespace {

// Splits allowed for each doubling of the range; a random order needs about three.
constexpr int kSplits = 4;

/// Half the sum, ties to the even index.
std::int32_t MiddleOf(std::int32_t low, std::int32_t high) {
  const std::int64_t sum = std::int64_t{low} + high;
  const std::int64_t half = sum >> 1;
  return static_cast<std::int32_t>((sum & 1) != 0 && (half & 1) != 0 ? half + 1 : half);
}

/// One exchange pass over low..high: afterwards low..j stands before i..high.
template <class T, class Below>
void Exchange(T* values, std::int32_t low, std::int32_t high, Below below, std::int32_t& i,
              std::int32_t& j) {
  const T pivot = values[MiddleOf(low, high)];
  i = low;
  j = high;
  while (i <= j) {
    while (i < high && below(values[i], pivot)) ++i;
    while (j > low && below(pivot, values[j])) --j;
    if (i <= j) std::swap(values[i++], values[j--]);
  }
}

/// The smaller part is sorted by a call, the larger by the loop: that bounds the stack. After too
/// many bad splits the rest goes to the heap, whose steps stay in range whatever the order is.
template <class T, class Below>
void SortRange(T* values, std::int32_t low, std::int32_t high, Below below, int splits) {
  while (low < high) {
    if (splits-- == 0) {
      std::make_heap(values + low, values + high + 1, below);
      std::sort_heap(values + low, values + high + 1, below);
      return;
    }
    std::int32_t i = 0;
    std::int32_t j = 0;
    Exchange(values, low, high, below, i, j);
    if (j - low < high - i) {
      SortRange(values, low, j, below, splits);
      low = i;
    } else {
      SortRange(values, i, high, below, splits);
      high = j;
    }
  }
}

/// What an exchange sort reads of a range before it changes anything.
template <class T>
void CheckBounds(const std::vector<T>& values, std::int32_t low, std::int32_t high) {
  At(values, MiddleOf(low, high));
  if (low > high) return;
  At(values, low);
  At(values, high);
}

template <class T, class Below>
void SortByExchange(std::vector<T>& values, std::int32_t low, std::int32_t high, Below below) {
  const auto count = static_cast<std::uint32_t>(high - low) + 1;
  SortRange(values.data(), low, high, below, kSplits * static_cast<int>(std::bit_width(count)));
}

/// `keyOf` gives unsigned numbers that ascend with the elements.
template <class T, class KeyOf>
void SortBetween(std::vector<T>& values, std::int32_t low, std::int32_t high, KeyOf keyOf) {
  const auto below = [&](const T& one, const T& other) { return keyOf(one) < keyOf(other); };
  const auto above = [&](const T& one, const T& other) { return keyOf(other) < keyOf(one); };
  const auto first = values.begin() + low;
  const auto end = values.begin() + high + 1;
  if (static_cast<std::size_t>(end - first) < kWorthDigits) {
    SortByExchange(values, low, high, below);
  } else if (std::is_sorted(first, end, above)) {
    std::reverse(first, end);
  } else if (!std::is_sorted(first, end, below)) {
    SortByDigits(&*first, static_cast<std::size_t>(end - first), keyOf);
  }
}

constexpr std::uint32_t KeyOf(std::int32_t number) {
  return static_cast<std::uint32_t>(number) ^ 0x80000000;
}

/// A negative number's bits descend, so they are turned over. Both zeroes are one.
std::uint64_t KeyOf(double number) {
  constexpr std::uint64_t kSign = std::uint64_t{1} << 63;
  const auto bits = std::bit_cast<std::uint64_t>(number + 0.0);
  return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

struct DayOfDate {
  std::int32_t day;
  Date date;
};

}  // namespace

void LongAscending(std::vector<std::int32_t>& values, std::int32_t low, std::int32_t high) {
  Guard::Top(u"LongAscending", [&] {
    CheckBounds(values, low, high);
    if (low < high)
      SortBetween(values, low, high, [](std::int32_t number) { return KeyOf(number); });
  });
}

void DoubleAscending(std::vector<double>& values, std::int32_t low, std::int32_t high) {
  Guard::Top(u"DoubleAscending", [&] {
    CheckBounds(values, low, high);
    if (low >= high) return;
    const auto isNumber = [](double number) { return number == number; };
    if (std::all_of(values.begin() + low, values.begin() + high + 1, isNumber)) {
      SortBetween(values, low, high, [](double number) { return KeyOf(number); });
    } else {
      SortByExchange(values, low, high, std::less<>());
    }
  });
}

void StringsAscending(std::vector<Text>& values, std::int32_t low, std::int32_t high) {
  Guard::Top(u"StringsAscending", [&] {
    CheckBounds(values, low, high);
    if (low < high) SortNoCase(values.data() + low, static_cast<std::size_t>(high - low) + 1);
  });
}

void DatesAscending(std::vector<Date>& values, std::int32_t low, std::int32_t high) {
  Guard::Top(u"DatesAscending", [&] {
    CheckBounds(values, low, high);
    if (low > high) return;
    std::vector<DayOfDate> days;
    days.reserve(static_cast<std::size_t>(high - low) + 1);
    for (std::int32_t at = low; at <= high; ++at) {
      const Date date = values[static_cast<std::size_t>(at)];
      days.push_back({DateToJulian(date), date});
    }
    SortBetween(days, 0, high - low, [](const DayOfDate& date) { return KeyOf(date.day); });
    std::ranges::transform(days, values.begin() + low, &DayOfDate::date);
  });
}

std::int32_t DateToJulian(Date date) {
  return Guard::Inner(u"DateToJulian", [&] {
    // The text form holds whole seconds: the last half second of a day belongs to the next.
    CivilTime civil = ToCivil(date);
    civil.hour = civil.minute = civil.second = 0;
    return DaySerial(ToDate(civil));
  });
}

}  // namespace brelmon
