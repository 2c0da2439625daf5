// SPDX-License-Identifier: GPL-2.0-or-later
// How names of fields stand in the queries of a data source.
#pragma once

#include "platform/text.h"

namespace brelmon {

/// What a source wants around the names of its fields; nothing at all for some.
struct FieldEnclosure {
  Text Open, Close;
  bool operator==(const FieldEnclosure&) const = default;
};
inline const FieldEnclosure kBrackets = {u"[", u"]"};
inline const FieldEnclosure kQuotations = {u"\"", u"\""};
inline const FieldEnclosure kNotEnclosed = {};

/// By what the source's description or type holds: "Personal Geodatabase" regardless of case,
/// "SDE" or "IMS"; quotations for any other.
const FieldEnclosure& EnclosureFor(TextView sourceText);

}  // namespace brelmon
