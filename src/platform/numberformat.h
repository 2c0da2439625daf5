// SPDX-License-Identifier: GPL-2.0-or-later
// The two formatters that reports are written with.
#pragma once

#include <cstdint>

#include "platform/object.h"
#include "platform/text.h"

namespace brelmon {

class INumberFormat : public virtual IObject {
 public:
  /// Fails with 5 where the settings can't be honoured.
  virtual Text ValueToString(double value) const = 0;
};

/// Decimal notation, aligned in a field of blanks. Rounding is of the exact binary value,
/// ties to even; group and decimal symbols are the locale's.
class NumericFormat : public INumberFormat {
 public:
  std::int32_t AlignmentOption = 0;  // 0 right, 1 left
  std::int32_t RoundingOption = 0;   // 0 a number of decimal places, the only one known
  std::int32_t AlignmentWidth = 12;
  std::int32_t RoundingValue = 6;
  bool ShowPlusSign = false;
  bool UseSeparator = false;
  bool ZeroPad = false;

  Text ValueToString(double value) const override;
};

/// Mantissa with DecimalPlaces places, the letter e, a signed exponent of at least two digits.
class ScientificNumberFormat : public INumberFormat {
 public:
  std::int32_t DecimalPlaces = 6;

  Text ValueToString(double value) const override;
};

}  // namespace brelmon
