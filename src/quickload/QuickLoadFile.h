// SPDX-License-Identifier: GPL-2.0-or-later
// QuickLoad.txt: the one reader and the one writer of the shortcuts beside a map document.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "platform/text.h"

namespace brelmon {

/// One shortcut. Its fields are the lines as read: nothing is trimmed, no number is converted.
struct QuickLoadRecord {
  enum class Kind { Layer, Query, Bookmark };
  Kind Is = Kind::Layer;
  /// Name and relative path; name and query string; name, XMin, YMin, XMax, YMax.
  std::vector<Text> Fields;
  /// Line of the tag, from 1; 0 for a record that was not read.
  std::int32_t Line = 0;
};

/// What a kind of record looks like: its tag, the lines behind it, its mark in a list of all kinds.
struct QuickLoadKind {
  QuickLoadRecord::Kind Is;
  TextView Tag;
  std::size_t FieldCount;
  TextView Mark;
};
inline constexpr QuickLoadKind kQuickLoadKinds[] = {
    {QuickLoadRecord::Kind::Layer, u"<Layer>", 2, u"  [Layer File]"},
    {QuickLoadRecord::Kind::Query, u"<Query>", 2, u"  [Saved Query]"},
    {QuickLoadRecord::Kind::Bookmark, u"<Bookmark>", 5, u"  [Spatial Bookmark]"},
};
const QuickLoadKind& KindOf(const QuickLoadRecord& record);

/// Reads records one by one from a file that is open for input.
class QuickLoadReader {
 public:
  using Skip = std::function<void(const Text& line, std::int32_t number)>;
  /// `skipped` hears of each line outside the records.
  explicit QuickLoadReader(std::int32_t fileNumber, Skip skipped = {})
      : file_(fileNumber), skipped_(std::move(skipped)) {}

  /// Nothing at the end of the file. A record cut short fails with 62.
  std::optional<QuickLoadRecord> Next();
  /// Lines read so far.
  std::int32_t Line() const { return line_; }
  /// The tag read last: its line, 0 if there was none, and its kind, null likewise.
  std::int32_t TagLine() const { return tagLine_; }
  const QuickLoadKind* TagKind() const { return tagKind_; }

 private:
  Text ReadLine();
  std::int32_t file_;
  Skip skipped_;
  std::int32_t line_ = 0, tagLine_ = 0;
  const QuickLoadKind* tagKind_ = nullptr;
};

namespace QuickLoadFile {

inline constexpr TextView kFileName = u"QuickLoad.txt";
/// All who use the file take this number, so a read that fails keeps the others out.
inline constexpr std::int32_t kFileNumber = 1;

/// Opens and reads the file; it stays open.
std::vector<QuickLoadRecord> OpenAndRead(const Text& path);
/// Opens, reads and closes. A failed read doesn't close.
std::vector<QuickLoadRecord> Read(const Text& path);
void Close();
/// Adds records at the end, without a look at what is there; makes the file if there is none. A
/// field that Windows-1252 can't hold fails with 5 before the file is touched.
void Append(const Text& path, const std::vector<QuickLoadRecord>& records);
/// Empties the file and writes `records` in their order.
void Rewrite(const Text& path, const std::vector<QuickLoadRecord>& records);

}  // namespace QuickLoadFile
}  // namespace brelmon
