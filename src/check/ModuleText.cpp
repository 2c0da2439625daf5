// SPDX-License-Identifier: GPL-2.0-or-later
// Encodings told by their marks and their bytes; lines counted as an editor and as the tools do.
#include "check/ModuleText.h"

#include <algorithm>

#include "check/Spelling.h"
#include "platform/codepage.h"
#include "platform/number.h"

namespace brelmon {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF", kLittleMark = "\xFF\xFE",
                           kBigMark = "\xFE\xFF";
constexpr std::size_t kChunk = std::size_t{64} * 1024;

/// Well-formed, and not ASCII alone.
bool IsUtf8(std::string_view bytes) {
  const bool ascii =
      std::all_of(bytes.begin(), bytes.end(), [](unsigned char byte) { return byte < 0x80; });
  return !ascii && ToUtf8(FromUtf8(bytes)) == bytes;
}

/// A line tells its encoding for itself: an editor command of the tools may have added
/// Windows-1252 to a file of UTF-8.
Text FromEither(std::string_view line) {
  return IsUtf8(line) ? Composed(FromUtf8(line)) : FromWindows1252(line);
}

/// Half of the bytes, or nearly so, are zeros: letters of two bytes each.
bool LooksLikeUtf16(std::string_view bytes) {
  const auto zeros = static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\0'));
  return zeros > 1 && zeros * 5 >= bytes.size() * 2;
}

Text FromUtf16(std::string_view bytes, bool bigEndian) {
  Text text;
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    const auto first = static_cast<unsigned char>(bytes[at]);
    const auto second = static_cast<unsigned char>(bytes[at + 1]);
    text += static_cast<char16_t>(bigEndian ? first << 8 | second : second << 8 | first);
  }
  return text;
}

}  // namespace

ModuleText::ModuleText(std::string bytes) : bytes_(std::move(bytes)) {
  const std::string_view all = bytes_;
  if (all.starts_with(kUtf8Mark)) {
    mark_ = kUtf8Mark.size();
  } else if (all.starts_with(kLittleMark) || all.starts_with(kBigMark)) {
    mark_ = kLittleMark.size();
    encoding_ =
        all.starts_with(kLittleMark) ? Encoding::Utf16LittleEndian : Encoding::Utf16BigEndian;
    return;
  }
  if (LooksLikeUtf16(all)) {
    encoding_ = all[0] == '\0' ? Encoding::Utf16BigEndian : Encoding::Utf16LittleEndian;
    return;
  }
  if (IsUtf8(all.substr(mark_))) encoding_ = Encoding::Utf8;
  onlyLineFeeds_ = all.find('\n') != all.npos && all.find('\r') == all.npos;

  editorLines_.push_back(1);
  for (std::size_t at = 0; at < all.size(); ++at) {
    const bool carriageReturn = all[at] == '\r';
    if (carriageReturn && at + 1 < all.size() && all[at + 1] == '\n') ++at;
    if (!carriageReturn && all[at] != '\n') continue;
    if (at + 1 < all.size()) ++lastLine_;
    if (carriageReturn) editorLines_.push_back(lastLine_);
  }
}

ModuleText ModuleText::Read(IFileSystem& files, const Text& path) {
  const auto stream = files.Open(path, FileMode::Input);
  if (!stream) Raise(failure::kPathFileAccess);
  std::string bytes;
  for (std::string chunk = stream->Read(kChunk); !chunk.empty(); chunk = stream->Read(kChunk)) {
    bytes += chunk;
  }
  return ModuleText(std::move(bytes));
}

bool ModuleText::EndsInLineEnd() const {
  return bytes_.empty() || bytes_.back() == '\r' || bytes_.back() == '\n';
}

std::int32_t ModuleText::EditorLine(std::int32_t line) const {
  const auto at = static_cast<std::size_t>(std::max(line, 1)) - 1;
  return editorLines_.empty() ? 1 : editorLines_[std::min(at, editorLines_.size() - 1)];
}

std::string ModuleText::Unmarked(const Text& asRead) const {
  std::string bytes = ToWindows1252(asRead);
  if (mark_ != 0 && bytes.starts_with(kUtf8Mark)) bytes.erase(0, mark_);
  return bytes;
}

bool ModuleText::IsUtf8Line(const Text& asRead) const {
  return encoding_ == Encoding::Utf8 || IsUtf8(Unmarked(asRead));
}

Text ModuleText::Meant(const Text& asRead) const { return FromEither(Unmarked(asRead)); }

Text ModuleText::Decoded() const {
  const std::string_view bytes = std::string_view(bytes_).substr(mark_);
  switch (encoding_) {
    case Encoding::Utf8:
      return Composed(FromUtf8(bytes));
    case Encoding::Utf16LittleEndian:
    case Encoding::Utf16BigEndian:
      return FromUtf16(bytes, encoding_ == Encoding::Utf16BigEndian);
    default:
      break;
  }
  Text text;
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t end = bytes.find_first_of("\r\n", at);
    const std::string_view line = bytes.substr(at, end == bytes.npos ? end : end + 1 - at);
    text += FromEither(line);
    at += line.size();
  }
  return text;
}

std::optional<std::string> ModuleText::Repaired() const {
  const Text text = Decoded();
  if (text.find(u'\0') != Text::npos || (IsUtf16() && !HasMark())) return {};
  if (!FitsWindows1252(text)) return {};
  std::string repaired;
  const std::string bytes = ToWindows1252(text);
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    const bool carriageReturn = bytes[at] == '\r';
    if (carriageReturn && at + 1 < bytes.size() && bytes[at + 1] == '\n') ++at;
    if (carriageReturn || bytes[at] == '\n') {
      repaired += "\r\n";
    } else {
      repaired += bytes[at];
    }
  }
  if (!repaired.empty() && !repaired.ends_with("\r\n")) repaired += "\r\n";
  return repaired;
}

Text ModuleText::WhyNotRepaired() const {
  if (IsUtf16() && !HasMark()) {
    return u"it looks like UTF-16 (\"Unicode\") without its mark: save it as ANSI (Windows-1252)";
  }
  const Text text = Decoded(), misfit = FirstMisfit(text);
  const auto zero = text.find(u'\0');
  const auto at = std::min(zero, misfit.empty() ? Text::npos : text.find(misfit));
  std::int32_t line = 1;
  for (std::size_t before = 0; before < at; ++before) {
    const bool followed = text[before + 1] == u'\n';
    if (text[before] == u'\n' || (text[before] == u'\r' && !followed)) ++line;
  }
  const Text where = u"line " + GeneralText(line) + u": ";
  return at == zero ? where + u"it holds a zero byte, so it may be no text"
                    : where + u"Windows-1252 has no \"" + misfit + u"\"";
}

}  // namespace brelmon
