// SPDX-License-Identifier: GPL-2.0-or-later
// A session's lines: words that are quoted come out as they went in.
#include <stdexcept>

#include "cli/words.h"
#include "fuzz/input.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace brelmon;
  std::vector<std::string> words;
  try {
    words = cli::SplitWords(fuzz::BytesOf(data, size));
  } catch (const std::runtime_error&) {
    return 0;
  }
  std::string line;
  for (const std::string& word : words) {
    line += '"';
    for (const char unit : word) {
      if (unit == '"' || unit == '\\') line += '\\';
      line += unit;
    }
    line += "\" ";
  }
  fuzz::Demand(cli::SplitWords(line) == words);
  return 0;
}
