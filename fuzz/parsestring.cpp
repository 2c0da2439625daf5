// SPDX-License-Identifier: GPL-2.0-or-later
// The splitter, and the list of values to ignore: a number that was read reads the same again.
#include <algorithm>
#include <cmath>

#include "fuzz/input.h"
#include "platform/number.h"
#include "util/aml_func_mod.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace brelmon;
  fuzz::OneFileWorld world({});
  const Text text = FromUtf8(fuzz::BytesOf(data, size));
  for (const char16_t delimiter : {u',', u' ', u'\t'}) {
    std::vector<Text> pieces;
    ParseString(text, pieces, delimiter);
    std::size_t length = 0;
    for (const Text& piece : pieces) length += piece.size();
    fuzz::Demand(length <= text.size());
    for (const Text& piece : pieces) {
      const auto number = ParseNumber(piece);
      if (!number || !std::isfinite(*number)) continue;
      const auto again = ParseNumber(GeneralText(*number));
      // Fifteen digits of them.
      fuzz::Demand(again && std::abs(*again - *number) <= std::abs(*number) * 1e-14);
    }
  }
  return 0;
}
