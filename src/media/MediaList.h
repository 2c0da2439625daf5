// SPDX-License-Identifier: GPL-2.0-or-later
// media_list.txt: the one reader of what a module brings along besides its map.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>

#include "platform/text.h"

namespace brelmon {

/// One item of the list.
struct MediaItem {
  Text Name;
  Text Written;   // location as it stands in the line, with ':' for each U+00DF
  Text Location;  // full path, or web address
  std::int32_t Code = 0;
  std::int32_t Line = 0;  // in the file, from 1
};

/// The kinds by code from 0. Any other code has no kind.
struct MediaKind {
  TextView AllLabel;  // in the list of all media
  TextView OwnLabel;  // once chosen from the kind's own list
};
inline constexpr std::array<MediaKind, 8> kMediaKinds = {{
    {u"Google Earth File", u"Text File"},
    {u"Image", u"Image File"},
    {u"Movie", u"Movie"},
    {u"Website", u"Website"},
    {u"Excel File", u"Excel File"},
    {u"Word File", u"Word File"},
    {u"PDF File", u"PDF File"},
    {u"PowerPoint File", u"PowerPoint Presentation"},
}};
inline constexpr std::int32_t kWebsiteCode = 3;
/// The kind of that code, or null.
const MediaKind* MediaKindOf(std::int32_t code);

/// The item's row among all media. `label` is that of the item before, empty at first; an item of a
/// known kind brings its own, any other takes it over.
Text AllMediaRow(const MediaItem& item, Text& label);

inline constexpr TextView kMediaListName = u"media_list.txt";

/// Whether the location of a website is that of a shortcut file.
bool IsShortcutFile(TextView location);

/// The item of one line; nothing for a line without a colon or without a comma. A line whose only
/// comma stands before the colon fails with 5; a kind code that is no whole number with 13, one
/// that 32 bits can't hold with 6.
std::optional<MediaItem> ParseMediaLine(const Text& line, const Text& documentDirectory);

/// Reads items one by one from a file that is open for input.
class MediaListReader {
 public:
  using Skip = std::function<void(const Text& line, std::int32_t number)>;
  /// `skipped` hears of each line that holds no item.
  MediaListReader(std::int32_t fileNumber, Text documentDirectory, Skip skipped = {})
      : file_(fileNumber), directory_(std::move(documentDirectory)), skipped_(std::move(skipped)) {}

  /// Nothing at the end of the file. Fails as ParseMediaLine does; the next call goes on behind
  /// the line that failed.
  std::optional<MediaItem> Next();
  /// The line read last and its number, 0 before the first.
  const Text& LastLine() const { return lastLine_; }
  std::int32_t Line() const { return line_; }

 private:
  std::int32_t file_;
  Text directory_;
  Skip skipped_;
  Text lastLine_;
  std::int32_t line_ = 0;
};

}  // namespace brelmon
