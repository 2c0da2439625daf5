// SPDX-License-Identifier: GPL-2.0-or-later
// A value of a field, a control or the contents view: empty, null, a number, a date, text, object.
#pragma once

#include <concepts>
#include <cstdint>
#include <variant>

#include "platform/date.h"
#include "platform/object.h"
#include "platform/text.h"

namespace brelmon {

struct Null {
  bool operator==(const Null&) const { return true; }
};

class Value {
 public:
  Value() = default;  // empty, which is not null
  Value(Null null) : data_(null) {}
  /// From a bool alone: a pointer, which would turn into one, is no value.
  template <std::same_as<bool> Flag>
  Value(Flag flag) : data_(flag) {}
  Value(std::int32_t number) : data_(number) {}
  Value(double number) : data_(number) {}
  Value(Date date) : data_(date) {}
  Value(Text text) : data_(std::move(text)) {}
  Value(const char16_t* text) : data_(Text(text)) {}
  template <class T>
  Value(const Ref<T>& object) : data_(Ref<IObject>(object)) {}

  bool IsEmpty() const { return std::holds_alternative<std::monostate>(data_); }
  bool IsNull() const { return std::holds_alternative<Null>(data_); }
  bool IsObject() const { return std::holds_alternative<Ref<IObject>>(data_); }
  template <class T>
  const T* If() const {
    return std::get_if<T>(&data_);
  }

  /// Conversions of the platform: empty gives 0, false, "" or no object. Null fails with 94,
  /// a text that is no number and every other misfit with 13, a number out of range with 6.
  double ToDouble(std::int32_t line = __builtin_LINE(), const char* file = __builtin_FILE()) const {
    const double* const number = If<double>();
    return number ? *number : Converted(line, file);
  }
  std::int32_t ToLong(std::int32_t line = __builtin_LINE(),
                      const char* file = __builtin_FILE()) const;  // ties to even
  Text ToText(std::int32_t line = __builtin_LINE(),
              const char* file = __builtin_FILE()) const;  // general text
  Date ToDate(std::int32_t line = __builtin_LINE(), const char* file = __builtin_FILE()) const;
  /// The object, or unset for empty and null; anything else fails with 13.
  Ref<IObject> ToObject(std::int32_t line = __builtin_LINE(),
                        const char* file = __builtin_FILE()) const;

 private:
  double Converted(std::int32_t line, const char* file) const;
  std::variant<std::monostate, Null, bool, std::int32_t, double, Date, Text, Ref<IObject>> data_;
};

}  // namespace brelmon
