// SPDX-License-Identifier: GPL-2.0-or-later
// The grammar of media_list.txt: name, ':', location, ',', kind code.
#include "media/MediaList.h"

#include <algorithm>
#include <limits>

#include "platform/failure.h"
#include "platform/textfile.h"

namespace brelmon {
namespace {

constexpr char16_t kColonInLocation = u'\u00DF';

/// A sign and digits, nothing else.
std::int32_t WholeNumber(TextView text) {
  const bool negative = text.starts_with(u'-');
  if (negative || text.starts_with(u'+')) text.remove_prefix(1);
  const auto isDigit = [](char16_t unit) { return unit >= u'0' && unit <= u'9'; };
  if (text.empty() || !std::all_of(text.begin(), text.end(), isDigit)) {
    Raise(failure::kTypeMismatch);
  }
  constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
  std::int64_t number = 0;
  for (const char16_t digit : text) {
    number = number * 10 + (digit - u'0');
    if (number > kMost + (negative ? 1 : 0)) Raise(failure::kOverflow);
  }
  return static_cast<std::int32_t>(negative ? -number : number);
}

Text Resolve(const MediaItem& item, const Text& directory) {
  if (item.Code == kWebsiteCode && !IsShortcutFile(item.Written)) return item.Written;
  Text path = directory + item.Written;
  std::replace(path.begin(), path.end(), u'/', u'\\');
  return path;
}

}  // namespace

const MediaKind* MediaKindOf(std::int32_t code) {
  if (code < 0 || static_cast<std::size_t>(code) >= kMediaKinds.size()) return nullptr;
  return &kMediaKinds[static_cast<std::size_t>(code)];
}

Text AllMediaRow(const MediaItem& item, Text& label) {
  if (const MediaKind* kind = MediaKindOf(item.Code)) label = kind->AllLabel;
  return item.Name + u"   (" + label + u")";
}

bool IsShortcutFile(TextView location) { return location.ends_with(u".url"); }

std::optional<MediaItem> ParseMediaLine(const Text& line, const Text& documentDirectory) {
  const Text trimmed = Trim(line);
  const auto colon = trimmed.find(u':');
  if (colon == Text::npos || trimmed.find(u',') == Text::npos) return {};
  MediaItem item;
  item.Name = trimmed.substr(0, colon);
  const Text rest = trimmed.substr(colon + 1);
  const auto comma = rest.find(u',');
  if (comma == Text::npos) Raise(failure::kInvalidCall);
  item.Written = rest.substr(0, comma);
  std::replace(item.Written.begin(), item.Written.end(), kColonInLocation, u':');
  item.Code = WholeNumber(Trim(TextView(rest).substr(comma + 1)));
  item.Location = Resolve(item, documentDirectory);
  return item;
}

std::optional<MediaItem> MediaListReader::Next() {
  while (!textfile::AtEnd(file_)) {
    lastLine_ = textfile::LineInput(file_);
    ++line_;
    if (auto item = ParseMediaLine(lastLine_, directory_)) {
      item->Line = line_;
      return item;
    }
    if (skipped_) skipped_(lastLine_, line_);
  }
  return {};
}

}  // namespace brelmon
