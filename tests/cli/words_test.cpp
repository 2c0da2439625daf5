// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/words.h"

#include <gtest/gtest.h>

namespace brelmon::cli {
namespace {

using Words = std::vector<std::string>;

TEST(Words, AreSplitAsInAShell) {
  const struct {
    const char* line;
    Words words;
  } rows[] = {
      {"", {}},
      {"pick quakes  weather\r", {"pick", "quakes", "weather"}},
      {"pick 'Atlantic storms'", {"pick", "Atlantic storms"}},
      {"a\"b c\"'d e'f", {"ab cd ef"}},
      {R"(query q "\"MAG\" > 5 \\ \n")", {"query", "q", R"("MAG" > 5 \ \n)"}},
      {R"('\' \' \ x)", {"\\", "'", " x"}},
      {"a '' \"\"", {"a", "", ""}},
      {"contents # all of it", {"contents"}},
      {"# contents", {}},
      {"a#b '#' \\#", {"a#b", "#", "#"}},
      {"fields #3", {"fields", "#3"}},
      {"pick #3 #12\t#1", {"pick", "#3", "#12", "#1"}},
      {"pick #3rd of all", {"pick"}},
  };
  for (const auto& [line, words] : rows) EXPECT_EQ(SplitWords(line), words) << line;
}

TEST(Words, OpenQuotesAreRefused) {
  EXPECT_THROW(SplitWords("pick 'a"), std::runtime_error);
  EXPECT_THROW(SplitWords("pick \"a\\\""), std::runtime_error);
}

}  // namespace
}  // namespace brelmon::cli
