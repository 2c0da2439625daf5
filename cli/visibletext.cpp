// SPDX-License-Identifier: GPL-2.0-or-later
// A filter before the stream's own buffer.
#include "cli/visibletext.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>

namespace brelmon::cli {
namespace {

/// A whole character that is shown as it is.
bool IsPlain(char byte) { return (byte >= 0x20 && byte < 0x7F) || byte == '\n' || byte == '\t'; }

/// Bytes of the character that begins so; 1 for what begins none.
std::size_t LengthOf(unsigned char first) {
  if (first >= 0xF0) return 4;
  if (first >= 0xE0) return 3;
  return first >= 0xC0 ? 2 : 1;
}

std::uint32_t CharacterOf(const std::string& bytes) {
  const auto first = static_cast<unsigned char>(bytes[0]);
  std::uint32_t character = bytes.size() == 1 ? first : first & (0x7Fu >> bytes.size());
  for (std::size_t i = 1; i < bytes.size(); ++i) {
    character = character << 6 | (static_cast<unsigned char>(bytes[i]) & 0x3Fu);
  }
  return character;
}

}  // namespace

bool Steers(std::uint32_t character) {
  if (character == '\n' || character == '\t') return false;
  return character < 0x20 || (character >= 0x7F && character < 0xA0) || character == 0x61C ||
         (character >= 0x200E && character <= 0x200F) ||
         (character >= 0x2028 && character <= 0x202E) ||
         (character >= 0x2066 && character <= 0x2069);
}

VisibleText::~VisibleText() {
  Flush();
  stream_.rdbuf(under_);
}

std::streambuf* VisibleText::Under(std::ostream& stream) {
  auto* filter = dynamic_cast<VisibleText*>(stream.rdbuf());
  return filter ? filter->under_ : stream.rdbuf();
}

VisibleText::int_type VisibleText::overflow(int_type byte) {
  if (traits_type::eq_int_type(byte, traits_type::eof())) return traits_type::not_eof(byte);
  return Put(traits_type::to_char_type(byte)) ? byte : traits_type::eof();
}

std::streamsize VisibleText::xsputn(const char* bytes, std::streamsize count) {
  const char* at = bytes;
  const char* const end = bytes + count;
  while (at != end) {
    const char* const plain = begun_.empty() ? std::find_if_not(at, end, IsPlain) : at;
    if (plain == at) {
      if (!Put(*at)) break;
      ++at;
      continue;
    }
    const std::streamsize taken = under_->sputn(at, plain - at);
    at += taken;
    if (at != plain) break;
  }
  return at - bytes;
}

int VisibleText::sync() { return Flush() ? under_->pubsync() : -1; }

bool VisibleText::Put(char byte) {
  const auto unit = static_cast<unsigned char>(byte);
  const bool goesOn = unit >= 0x80 && unit < 0xC0;
  // A byte that goes on with nothing is none of UTF-8 and steers some terminals.
  if (goesOn == begun_.empty() && !Flush()) return false;
  begun_ += byte;
  const bool whole = begun_.size() == LengthOf(static_cast<unsigned char>(begun_[0]));
  return !whole || Flush();
}

bool VisibleText::Flush() {
  if (begun_.empty()) return true;
  const std::uint32_t character = CharacterOf(begun_);
  std::string shown;
  shown.swap(begun_);
  if (Steers(character)) {
    char text[16];
    std::snprintf(text, sizeof text, "<U+%04X>", static_cast<unsigned>(character));
    shown = text;
  }
  const auto count = static_cast<std::streamsize>(shown.size());
  return under_->sputn(shown.data(), count) == count;
}

}  // namespace brelmon::cli
