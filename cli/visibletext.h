// SPDX-License-Identifier: GPL-2.0-or-later
// A module's texts on a terminal: what steers a terminal is shown, not done.
#pragma once

#include <cstdint>
#include <ostream>
#include <streambuf>
#include <string>

namespace brelmon::cli {

/// Whether a character steers a terminal or the direction of writing; line ends and tabs don't.
bool Steers(std::uint32_t character);

/// For as long as it lives, a stream of UTF-8 shows control characters (but for line ends and tabs)
/// and marks of writing direction as `<U+001B>`. Bytes of a character may come in pieces.
class VisibleText : public std::streambuf {
 public:
  explicit VisibleText(std::ostream& stream) : stream_(stream), under_(stream.rdbuf(this)) {}
  ~VisibleText() override;
  VisibleText(const VisibleText&) = delete;
  VisibleText& operator=(const VisibleText&) = delete;

  /// Where the program's own pictures go.
  static std::streambuf* Under(std::ostream& stream);

 protected:
  int_type overflow(int_type byte) override;
  std::streamsize xsputn(const char* bytes, std::streamsize count) override;
  int sync() override;

 private:
  bool Put(char byte);
  bool Flush();

  std::ostream& stream_;
  std::streambuf* under_;
  std::string begun_;  // of a character of several bytes
};

}  // namespace brelmon::cli
