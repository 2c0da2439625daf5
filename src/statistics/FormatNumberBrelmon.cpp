// SPDX-License-Identifier: GPL-2.0-or-later
// A number as report text: in digits, or with the name of its power of ten.
#include <cmath>
#include <cstdlib>

#include "frame/guard.h"
#include "platform/number.h"
#include "platform/numberformat.h"
#include "statistics/BrelmonFunctions.h"
#include "util/aml_func_mod.h"

namespace brelmon {
namespace {

constexpr std::int32_t kHighestName = 303;

/// At most so many places, with separators, in a field of blanks that is trimmed away.
struct DecimalFormat : NumericFormat {
  explicit DecimalFormat(std::int16_t decimals) {
    AlignmentOption = 0;
    RoundingOption = 0;
    AlignmentWidth = 15;
    RoundingValue = decimals;
    ShowPlusSign = false;
    UseSeparator = true;
    ZeroPad = false;
  }
};

struct Parts {
  double Mantissa;
  std::int32_t Exponent;
};

/// The mantissa comes rounded, from the text.
Parts SplitScientific(double value, std::int16_t decimals) {
  if (value >= 0.0001 && value < 0.001) return {value * 10000, -4};
  ScientificNumberFormat format;
  format.DecimalPlaces = decimals;
  std::vector<Text> pieces;
  ParseString(format.ValueToString(value), pieces, u'e');
  Parts parts{0, ToLong(At(pieces, 1))};
  parts.Mantissa = ToDouble(At(pieces, 0));
  return parts.Mantissa == 10 ? Parts{1, parts.Exponent + 1} : parts;
}

/// Whether the exponents step down past this one: only those of threes and three more are named.
bool IsUnnamed(std::int32_t exponent) {
  return exponent % 3 != 0 && exponent != -2 && exponent != -4 && exponent != -5;
}

Text InWords(double value, const NumberNames& dictionary, std::int16_t decimals) {
  const DecimalFormat numeric(decimals);
  Parts parts = SplitScientific(value, decimals);
  if (std::abs(parts.Exponent) > kHighestName) return Trim(numeric.ValueToString(value));
  int power = 0;
  for (; IsUnnamed(parts.Exponent); --parts.Exponent) ++power;
  const Text& name = dictionary.Item(GeneralText(parts.Exponent))[0];
  const double scaled = std::pow(10.0, power) * parts.Mantissa;
  if (!std::isfinite(scaled)) Raise(failure::kOverflow);
  return Trim(numeric.ValueToString(scaled) + u" " + name);
}

}  // namespace

Text FormatNumberBrelmon(double value, const Ref<NumberNames>& dictionary, std::int16_t decimals) {
  return Guard::Top(u"FormatNumberBrelmon", [&] {
    const Text sign = value < 0 ? u"-" : u"";
    const double size = std::fabs(value);
    if ((size >= 0.001 && size <= 999999) || size == 0) {
      return sign + Trim(DecimalFormat(decimals).ValueToString(size));
    }
    return sign + InWords(size, *dictionary, decimals);
  });
}

}  // namespace brelmon
