// SPDX-License-Identifier: GPL-2.0-or-later
// Numbers as text and back, under the process's one locale.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/text.h"

namespace brelmon {

/// General text of a double: 15 significant digits at most, as C's %.15G, with the locale's
/// decimal symbol; negative zero reads "0". 1E15 reads "1E+15".
Text GeneralText(double value);
/// Decimal digits with a minus sign where negative.
Text GeneralText(std::int32_t value);
/// "True" or "False".
Text GeneralText(bool value);

/// The platform's numeric test and its conversion are one: blanks around, a sign, group symbols,
/// the locale's decimal symbol, an exponent with e or d. Nothing for anything else or an overflow.
std::optional<double> ParseNumber(TextView text);

/// Text to number; a text that is none fails with 13, one out of range with 6.
double ToDouble(TextView text, std::int32_t line = __builtin_LINE(),
                const char* file = __builtin_FILE());
/// Rounded to the nearest whole number, ties to even; out of range fails with 6.
std::int32_t ToLong(double value, std::int32_t line = __builtin_LINE(),
                    const char* file = __builtin_FILE());
std::int32_t ToLong(TextView text, std::int32_t line = __builtin_LINE(),
                    const char* file = __builtin_FILE());
std::int16_t ToInteger(TextView text, std::int32_t line = __builtin_LINE(),
                       const char* file = __builtin_FILE());

}  // namespace brelmon
