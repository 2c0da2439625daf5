// SPDX-License-Identifier: GPL-2.0-or-later
// Reading times and the system's clock.
#include "hosts/common/clock.h"

#include <chrono>
#include <cstdlib>
#include <ctime>

namespace brelmon::host {
namespace {

/// Takes `width` digits off the front of `text`; false if they aren't there.
bool TakeNumber(std::string_view& text, std::size_t width, int& number) {
  if (text.size() < width) return false;
  number = 0;
  for (std::size_t i = 0; i < width; ++i) {
    if (text[i] < '0' || text[i] > '9') return false;
    number = number * 10 + (text[i] - '0');
  }
  text.remove_prefix(width);
  return true;
}

bool TakeOneOf(std::string_view& text, std::string_view marks) {
  if (text.empty() || marks.find(text[0]) == std::string_view::npos) return false;
  text.remove_prefix(1);
  return true;
}

}  // namespace

std::optional<CivilTime> ParseIsoTime(std::string_view text) {
  CivilTime time;
  if (!TakeNumber(text, 4, time.year) || !TakeOneOf(text, "-") ||
      !TakeNumber(text, 2, time.month) || !TakeOneOf(text, "-") || !TakeNumber(text, 2, time.day) ||
      !TakeOneOf(text, "T ") || !TakeNumber(text, 2, time.hour) || !TakeOneOf(text, ":") ||
      !TakeNumber(text, 2, time.minute)) {
    return {};
  }
  if (TakeOneOf(text, ":") && !TakeNumber(text, 2, time.second)) return {};
  const std::chrono::year_month_day day(std::chrono::year(time.year),
                                        std::chrono::month(static_cast<unsigned>(time.month)),
                                        std::chrono::day(static_cast<unsigned>(time.day)));
  const bool good = text.empty() && day.ok() && time.year >= 100 && time.hour < 24 &&
                    time.minute < 60 && time.second < 60;
  return good ? std::optional(time) : std::nullopt;
}

HostClock::HostClock() {
  if (const char* now = std::getenv("BRELMON_NOW")) fixed_ = ParseIsoTime(now);
}

Date HostClock::Now() {
  if (fixed_) return ToDate(*fixed_);
  const std::time_t seconds = std::time(nullptr);
  std::tm local{};
  ::localtime_r(&seconds, &local);
  return ToDate({local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
                 local.tm_sec < 60 ? local.tm_sec : 59});
}

}  // namespace brelmon::host
