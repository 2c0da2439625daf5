// SPDX-License-Identifier: GPL-2.0-or-later
// Conversions of a value, as the platform makes them.
#include "platform/value.h"

#include "platform/number.h"

namespace brelmon {
namespace {

// Serials of 1 January 100 and of the day after 31 December 9999.
constexpr double kFirstSerial = -657434;
constexpr double kEndSerial = 2958466;

// The truth value that counts as true is all bits set.
std::int32_t Whole(bool flag) { return flag ? -1 : 0; }

/// Each conversion tells what it makes of numbers, dates and texts; the rest is alike in all.
template <class Result, class Convert>
struct Conversion {
  std::int32_t line;
  Convert convert;

  Result operator()(std::monostate) const { return Result(); }
  Result operator()(Null) const { Raise(failure::kInvalidUseOfNull, line); }
  Result operator()(const Ref<IObject>&) const { Raise(failure::kTypeMismatch, line); }
  template <class T>
  Result operator()(const T& value) const {
    return convert(value);
  }
};

template <class Result, class Data, class Convert>
Result Visit(const Data& data, std::int32_t line, Convert convert) {
  return std::visit(Conversion<Result, Convert>{line, convert}, data);
}

template <class... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

}  // namespace

double Value::Converted(std::int32_t line) const {
  return Visit<double>(data_, line,
                       Overloaded{
                           [](bool flag) -> double { return Whole(flag); },
                           [](std::int32_t number) -> double { return number; },
                           [](double number) { return number; },
                           [](Date date) { return date.Serial; },
                           [line](const Text& text) { return brelmon::ToDouble(text, line); },
                       });
}

std::int32_t Value::ToLong(std::int32_t line) const {
  return brelmon::ToLong(ToDouble(line), line);
}

Text Value::ToText(std::int32_t line) const {
  return Visit<Text>(data_, line,
                     Overloaded{
                         [](const Text& text) { return text; },
                         [](const auto& other) { return GeneralText(other); },
                     });
}

Date Value::ToDate(std::int32_t line) const {
  if (const Date* date = If<Date>()) return *date;
  const double serial = ToDouble(line);
  if (!(serial >= kFirstSerial && serial < kEndSerial)) Raise(failure::kOverflow, line);
  return {serial};
}

Ref<IObject> Value::ToObject(std::int32_t line) const {
  if (IsEmpty() || IsNull()) return {};
  if (const auto* object = If<Ref<IObject>>()) return *object;
  Raise(failure::kTypeMismatch, line);
}

}  // namespace brelmon
