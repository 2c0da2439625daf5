// SPDX-License-Identifier: GPL-2.0-or-later
// Exchange sort around the middle element, with a heap sort for ranges that split badly.
#include "util/QuickSortNonCase.h"

#include <algorithm>
#include <bit>
#include <functional>

#include "frame/guard.h"
#include "platform/collection.h"

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
void SortBetween(std::vector<T>& values, std::int32_t low, std::int32_t high, Below below) {
  CheckBounds(values, low, high);
  if (low >= high) return;
  const auto count = static_cast<std::uint32_t>(high - low) + 1;
  SortRange(values.data(), low, high, below, kSplits * static_cast<int>(std::bit_width(count)));
}

struct DayOfDate {
  std::int32_t day;
  Date date;
};

}  // namespace

void LongAscending(std::vector<std::int32_t>& values, std::int32_t low, std::int32_t high) {
  Guard::Top(u"LongAscending", [&] { SortBetween(values, low, high, std::less<>()); });
}

void DoubleAscending(std::vector<double>& values, std::int32_t low, std::int32_t high) {
  Guard::Top(u"DoubleAscending", [&] { SortBetween(values, low, high, std::less<>()); });
}

void StringsAscending(std::vector<Text>& values, std::int32_t low, std::int32_t high) {
  Guard::Top(u"StringsAscending", [&] {
    SortBetween(values, low, high,
                [](const Text& one, const Text& other) { return CompareNoCase(one, other) < 0; });
  });
}

void DatesAscending(std::vector<Date>& values, std::int32_t low, std::int32_t high) {
  Guard::Top(u"DatesAscending", [&] {
    CheckBounds(values, low, high);
    std::vector<DayOfDate> days(values.size());
    for (std::size_t at = 0; at < days.size(); ++at) {
      const auto index = static_cast<std::int32_t>(at);
      const bool inRange = index >= low && index <= high;
      days[at] = {inRange ? DateToJulian(values[at]) : 0, values[at]};
    }
    SortBetween(days, low, high,
                [](const DayOfDate& one, const DayOfDate& other) { return one.day < other.day; });
    std::ranges::transform(days, values.begin(), &DayOfDate::date);
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
