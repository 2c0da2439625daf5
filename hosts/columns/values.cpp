// SPDX-License-Identifier: GPL-2.0-or-later
// From storage to the platform's values.
#include "hosts/columns/values.h"

#include <cmath>
#include <limits>

#include "hosts/common/hostfailure.h"

namespace brelmon::columns {

Value WholeNumber(std::int64_t number) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (number < Limits::min() || number > Limits::max()) return static_cast<double>(number);
  return static_cast<std::int32_t>(number);
}

Date DateOf(const Moment& moment) {
  const int second = static_cast<int>(moment.Second);
  const Date whole =
      ToDate({moment.Year, moment.Month, moment.Day, moment.Hour, moment.Minute, second});
  const double rest = std::round(static_cast<double>(moment.Second)) - second;
  // A second more may end the minute, which a calendar date would not admit.
  return rest < 1 ? whole : Date{whole.Serial + (whole.Serial < 0 ? -1 : 1) / 86400.0};
}

Value ValueAt(const Column& column, const Field& field, std::size_t row) {
  if (column.IsNull(row)) return Null();
  if (!column.Wholes.empty()) return WholeNumber(column.Wholes[row]);
  if (!column.Reals.empty()) return column.Reals[row];
  if (!column.Moments.empty()) return DateOf(column.Moments[row]);
  if (column.Texts.empty()) return {};
  if (field.Type == FieldType::Blob) {
    host::Fail(failure::kTypeMismatch, "A binary field has no value that could be read.");
  }
  return FromUtf8(column.Texts[row]);
}

}  // namespace brelmon::columns
