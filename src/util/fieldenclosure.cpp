// SPDX-License-Identifier: GPL-2.0-or-later
// A data source's enclosure by its own words.
#include "util/fieldenclosure.h"

namespace brelmon {

const FieldEnclosure& EnclosureFor(TextView sourceText) {
  if (FindNoCase(sourceText, u"Personal Geodatabase") != Text::npos) return kBrackets;
  if (sourceText.find(u"SDE") != Text::npos) return kNotEnclosed;
  if (sourceText.find(u"IMS") != Text::npos) return kNotEnclosed;
  return kQuotations;
}

}  // namespace brelmon
