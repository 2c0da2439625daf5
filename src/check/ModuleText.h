// SPDX-License-Identifier: GPL-2.0-or-later
// A module's text file as bytes: its encoding and line ends, and how to put them right.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/services.h"

namespace brelmon {

class ModuleText {
 public:
  enum class Encoding { Windows1252, Utf8, Utf16LittleEndian, Utf16BigEndian };

  explicit ModuleText(std::string bytes);
  /// Fails as IFileSystem::Open.
  static ModuleText Read(IFileSystem& files, const Text& path);

  Encoding Is() const { return encoding_; }
  bool HasMark() const { return mark_ != 0; }
  /// With its mark, or by the zeros between its letters.
  bool IsUtf16() const { return encoding_ >= Encoding::Utf16LittleEndian; }
  /// Line feeds and not one carriage return: the tools see one line.
  bool OnlyLineFeeds() const { return onlyLineFeeds_; }
  bool EndsInLineEnd() const;

  /// Line that an editor shows for the tools' line `line`; both from 1.
  std::int32_t EditorLine(std::int32_t line) const;
  /// Line of an editor that the last byte is on.
  std::int32_t LastEditorLine() const { return lastLine_; }
  /// Whether a line, as the tools read it, was written as UTF-8.
  bool IsUtf8Line(const Text& asRead) const;
  /// What the author wrote, for a line as the tools read it.
  Text Meant(const Text& asRead) const;

  /// The whole text, mark left out.
  Text Decoded() const;
  /// Windows-1252 with CR LF behind every line; nothing for a text that the page can't hold, and
  /// for one with zeros in it, which no editor of texts writes.
  std::optional<std::string> Repaired() const;
  /// Where and why Repaired gives nothing.
  Text WhyNotRepaired() const;

  const std::string& Bytes() const { return bytes_; }

 private:
  /// Bytes of a line as the tools read it, without the file's mark.
  std::string Unmarked(const Text& asRead) const;

  std::string bytes_;
  std::size_t mark_ = 0;  // bytes of the byte-order mark
  Encoding encoding_ = Encoding::Windows1252;
  bool onlyLineFeeds_ = false;
  std::vector<std::int32_t> editorLines_;  // of the tools' lines
  std::int32_t lastLine_ = 1;
};

}  // namespace brelmon
