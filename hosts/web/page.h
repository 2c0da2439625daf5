// SPDX-License-Identifier: GPL-2.0-or-later
// The page's side: what the host may ask of it. imports.js hands the calls on.
#pragma once

#include <string>

#include "hosts/web/json.h"

namespace brelmon::web {

/// Tells the page something, as an object whose `what` says which. Returns at once.
void Tell(const Json& message);
/// The one call that suspends: returns when the page ends the wait of that name, with its answer.
/// Waits end in the reverse order of their beginnings.
int Wait(int name);
/// A name that no wait, form or box has had.
int NextName();

}  // namespace brelmon::web
