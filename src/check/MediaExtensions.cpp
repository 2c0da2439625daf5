// SPDX-License-Identifier: GPL-2.0-or-later
// Extensions by kind code.
#include "check/MediaExtensions.h"

#include <array>

#include "platform/number.h"

namespace brelmon {
namespace {

/// By kind code, extensions between blanks. One that stands twice fits two kinds.
constexpr std::array<TextView, 8> kExtensions = {
    u" kml kmz ",
    u" jpg jpeg png gif tif tiff bmp svg jp2 webp ",
    u" avi mov mp4 m4v mpg mpeg wmv webm mkv ogv gif swf ",
    u" url htm html ",
    u" xls xlsx xlsm ods csv dbf ",
    u" doc docx rtf odt txt ",
    u" pdf ",
    u" ppt pptx pps ppsx odp ",
};

}  // namespace

std::vector<std::int32_t> CodesForLocation(const Text& location) {
  const auto dot = location.find_last_of(u"./\\");
  if (dot == Text::npos || location[dot] != u'.') return {};
  const Text wanted = u" " + Trim(location.substr(dot + 1)) + u" ";
  std::vector<std::int32_t> codes;
  for (std::size_t code = 0; code < kExtensions.size(); ++code) {
    if (FindNoCase(kExtensions[code], wanted) == Text::npos) continue;
    codes.push_back(static_cast<std::int32_t>(code));
  }
  return codes;
}

bool LooksLikeAddress(const Text& location) {
  return location.find(u"//") != Text::npos || FindNoCase(location, u"www.") == 0;
}

Text CodeFor(const Text& location) {
  constexpr std::int32_t kWebsite = 3;
  if (LooksLikeAddress(location)) return GeneralText(kWebsite);
  for (const std::int32_t code : CodesForLocation(location)) {
    if (code != kWebsite || FindNoCase(location, u".url") != Text::npos) return GeneralText(code);
  }
  return u"5";
}

}  // namespace brelmon
