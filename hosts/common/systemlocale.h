// SPDX-License-Identifier: GPL-2.0-or-later
// The platform's locale, filled in from the system's.
#pragma once

#include <string>

#include "platform/locale.h"

namespace brelmon::host {

/// By POSIX names such as "de_DE.UTF-8"; "", "C" and "POSIX" give English. `numbers` decides on
/// the symbols of numbers, `dates` on the rest.
Locale LocaleNamed(const std::string& numbers, const std::string& dates);

/// BRELMON_LOCALE of the environment, else LC_ALL, LC_NUMERIC and LC_TIME, LANG.
Locale SystemLocale();

}  // namespace brelmon::host
