// SPDX-License-Identifier: GPL-2.0-or-later
// Documents are found from the component's own file, so that an installation can be moved.
#include "forms/aboutpages.h"

#include <vector>

#include "frame/commandtable.h"
#include "frame/configuration.h"
#include "platform/services.h"

namespace brelmon {
namespace {

bool IsSeparator(char16_t unit) { return unit == u'\\' || unit == u'/'; }

/// From the drive on, "." and ".." resolved.
std::vector<Text> Segments(TextView path) {
  std::vector<Text> segments;
  for (std::size_t at = 0; at <= path.size(); ++at) {
    Text segment;
    for (; at < path.size() && !IsSeparator(path[at]); ++at) segment += path[at];
    if (segment == u"..") {
      if (segments.size() > 1) segments.pop_back();
    } else if (!segment.empty() && segment != u".") {
      segments.push_back(segment);
    }
  }
  return segments;
}

/// Bytes that stand for themselves in a path of a URL.
bool IsPlain(char byte) {
  const auto in = [byte](char first, char last) { return byte >= first && byte <= last; };
  return in('a', 'z') || in('A', 'Z') || in('0', '9') ||
         std::string_view("-._~:!$&()*+,;=@").find(byte) != std::string_view::npos;
}

Text Encoded(const Text& segment) {
  constexpr TextView kDigits = u"0123456789ABCDEF";
  Text encoded;
  for (const char byte : ToUtf8(segment)) {
    const auto unit = static_cast<unsigned char>(byte);
    if (IsPlain(byte)) {
      encoded += static_cast<char16_t>(unit);
    } else {
      encoded += {u'%', kDigits[unit >> 4], kDigits[unit & 15u]};
    }
  }
  return encoded;
}

/// Of the component; empty where the registry doesn't tell.
Text OwnFolder() {
  const Text classId = ToText(CommandNamed(u"cmdAbout").ClassId);
  Value library;
  if (!Registry().Query(RegistryRoot::ClassesRoot, u"CLSID\\" + classId + u"\\InprocServer32", {},
                        library)) {
    return {};
  }
  Text path = library.ToText();
  while (!path.empty() && !IsSeparator(path.back())) path.pop_back();
  return path;
}

}  // namespace

Text FileUrl(TextView path) {
  Text url = u"file://";
  for (const Text& segment : Segments(path)) url += u'/' + Encoded(segment);
  return url;
}

Text PageAddress(TextView page) {
  if (page.empty() || page.find(u':') != TextView::npos) return Text(page);
  const Text folder = OwnFolder();
  if (folder.empty()) return {};
  return FileUrl(folder + Text(configuration::kDocuments) + u'/' + Text(page));
}

}  // namespace brelmon
