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
  const char* file;
  Convert convert;

  Result operator()(std::monostate) const { return Result(); }
  Result operator()(Null) const { Raise(failure::kInvalidUseOfNull, line, file); }
  Result operator()(const Ref<IObject>&) const { Raise(failure::kTypeMismatch, line, file); }
  template <class T>
  Result operator()(const T& value) const {
    return convert(value);
  }
};

template <class Result, class Data, class Convert>
Result Visit(const Data& data, std::int32_t line, const char* file, Convert convert) {
  return std::visit(Conversion<Result, Convert>{line, file, convert}, data);
}

template <class... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

}  // namespace

double Value::Converted(std::int32_t line, const char* file) const {
  return Visit<double>(
      data_, line, file,
      Overloaded{
          [](bool flag) -> double { return Whole(flag); },
          [](std::int32_t number) -> double { return number; },
          [](double number) { return number; },
          [](Date date) { return date.Serial; },
          [line, file](const Text& text) { return brelmon::ToDouble(text, line, file); },
      });
}

std::int32_t Value::ToLong(std::int32_t line, const char* file) const {
  return brelmon::ToLong(ToDouble(line, file), line, file);
}

Text Value::ToText(std::int32_t line, const char* file) const {
  return Visit<Text>(data_, line, file,
                     Overloaded{
                         [](const Text& text) { return text; },
                         [](const auto& other) { return GeneralText(other); },
                     });
}

Date Value::ToDate(std::int32_t line, const char* file) const {
  if (const Date* date = If<Date>()) return *date;
  const double serial = ToDouble(line, file);
  if (!(serial >= kFirstSerial && serial < kEndSerial)) Raise(failure::kOverflow, line, file);
  return {serial};
}

Ref<IObject> Value::ToObject(std::int32_t line, const char* file) const {
  if (IsEmpty() || IsNull()) return {};
  if (const auto* object = If<Ref<IObject>>()) return *object;
  Raise(failure::kTypeMismatch, line, file);
}

}  // namespace brelmon
