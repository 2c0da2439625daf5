// SPDX-License-Identifier: GPL-2.0-or-later
// What the library shows the world and what it needs of it.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <regex>
#include <set>
#include <string>

namespace {

std::string OutputOf(const std::string& command) {
  std::string output;
  FILE* pipe = popen(command.c_str(), "r");
  std::array<char, 4096> chunk{};
  while (pipe && fgets(chunk.data(), chunk.size(), pipe)) output += chunk.data();
  if (pipe) pclose(pipe);
  return output;
}

TEST(Boundaries, TheLibraryExportsFourSymbolsAndLinksNothingOutside) {
  std::set<std::string> exported;
  const std::string symbols = OutputOf("nm -D --defined-only '" BRELMON_COMPONENT "'");
  const std::regex name("[A-Z] (\\S+)\n");
  for (std::sregex_iterator it(symbols.begin(), symbols.end(), name), end; it != end; ++it) {
    exported.insert((*it)[1]);
  }
  EXPECT_EQ(exported, (std::set<std::string>{"DllCanUnloadNow", "DllGetClassObject",
                                             "DllRegisterServer", "DllUnregisterServer"}));
  const std::string needed = OutputOf("readelf -d '" BRELMON_COMPONENT "' | grep NEEDED");
  const std::regex library("\\[([^\\]]+)\\]");
  const std::regex allowed("lib(stdc\\+\\+|m|gcc_s|c|asan|ubsan)\\.so.*|ld-linux.*");
  for (std::sregex_iterator it(needed.begin(), needed.end(), library), end; it != end; ++it) {
    EXPECT_TRUE(std::regex_match((*it)[1].str(), allowed)) << (*it)[1];
  }
  EXPECT_FALSE(needed.empty());
}

}  // namespace
