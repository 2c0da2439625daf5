// SPDX-License-Identifier: GPL-2.0-or-later
// Values of a row in the platform's terms.
#include <cmath>
#include <limits>

#include "hosts/common/hostfailure.h"
#include "hosts/headless/vectorsource.h"

namespace brelmon::headless {
namespace {

Value DateValue(const OGRFeature& row, int index) {
  CivilTime time;
  float seconds = 0;
  int zone = 0;
  if (!row.GetFieldAsDateTime(index, &time.year, &time.month, &time.day, &time.hour, &time.minute,
                              &seconds, &zone)) {
    return Null();
  }
  time.second = static_cast<int>(seconds);
  const double rest = std::round(static_cast<double>(seconds)) - time.second;
  const Date whole = ToDate(time);
  // Half a second and more counts up, also over the end of a minute.
  return rest < 1 ? whole : Date{whole.Serial + (whole.Serial < 0 ? -1 : 1) / 86400.0};
}

}  // namespace

Value WholeNumber(GIntBig number) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (number < Limits::min() || number > Limits::max()) return static_cast<double>(number);
  return static_cast<std::int32_t>(number);
}

Value ReadValue(const VectorSource& source, const OGRFeature& row, const SourceField& field) {
  if (field.ogrIndex < 0) return WholeNumber(row.GetFID());
  if (!row.IsFieldSetAndNotNull(field.ogrIndex)) return Null();
  switch (field.ogrType) {
    case OFTInteger:
      return static_cast<std::int32_t>(row.GetFieldAsInteger(field.ogrIndex));
    case OFTInteger64:
      return WholeNumber(row.GetFieldAsInteger64(field.ogrIndex));
    case OFTReal:
      return row.GetFieldAsDouble(field.ogrIndex);
    case OFTDate:
    case OFTDateTime:
      return DateValue(row, field.ogrIndex);
    case OFTBinary:
      host::Fail(failure::kTypeMismatch, "A binary field has no value that could be read.");
    default:
      return source.TextFromSource(row.GetFieldAsString(field.ogrIndex));
  }
}

}  // namespace brelmon::headless
