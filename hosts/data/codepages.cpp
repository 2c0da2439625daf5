// SPDX-License-Identifier: GPL-2.0-or-later
// Each of the 256 bytes, as GDAL recodes it.
#include "hosts/data/codepages.h"

#include <cpl_conv.h>
#include <cpl_error.h>
#include <cpl_string.h>

namespace brelmon::data {
namespace {

/// One unit a byte, and ASCII its own.
bool IsSingleByte(const char* name) {
  return STARTS_WITH_CI(name, "CP125") || STARTS_WITH_CI(name, "WINDOWS-125") ||
         STARTS_WITH_CI(name, "ISO-8859-") || EQUAL(name, "CP437") || EQUAL(name, "CP850");
}

}  // namespace

columns::CodePage CodePageNamed(const std::string& name) {
  if (name.empty() || EQUAL(name.c_str(), CPL_ENC_UTF8)) return {};
  if (!IsSingleByte(name.c_str())) return {name, {}};
  Text units(256, u'\0');
  CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
  for (int byte = 0; byte < 256; ++byte) {
    const char bytes[] = {static_cast<char>(byte), '\0'};
    char* utf8 = CPLRecode(bytes, name.c_str(), CPL_ENC_UTF8);
    const Text unit = FromUtf8(utf8);
    CPLFree(utf8);
    if (unit.size() == 1 && unit[0] != u'\uFFFD') units[static_cast<std::size_t>(byte)] = unit[0];
  }
  CPLErrorReset();
  return {name, units};
}

}  // namespace brelmon::data
