// SPDX-License-Identifier: GPL-2.0-or-later
// The browser's locale.
#pragma once

#include "hosts/web/json.h"
#include "platform/locale.h"

namespace brelmon::web {

/// From `decimal`, `group`, `shortDate`, `longTime`, `longDate`, `morning`, `afternoon`, `months`
/// and `weekdays`; English for what is absent.
Locale LocaleOf(const Message& settings);

}  // namespace brelmon::web
