// SPDX-License-Identifier: GPL-2.0-or-later
// What the tools may know of the world: the standard library, and the rooms below them.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

/// From the ground up; a room includes itself and those before it.
const std::vector<std::string> kRooms = {
    "platform", "toolkit",   "frame",     "util",      "forms", "statistics", "layertools",
    "media",    "quickload", "selection", "summarize", "check", "component"};

std::string OutputOf(const std::string& command) {
  std::string output;
  FILE* pipe = popen(command.c_str(), "r");
  std::array<char, 4096> chunk{};
  while (pipe && fgets(chunk.data(), chunk.size(), pipe)) output += chunk.data();
  if (pipe) pclose(pipe);
  return output;
}

std::size_t Level(const std::string& room) {
  return static_cast<std::size_t>(std::find(kRooms.begin(), kRooms.end(), room) - kRooms.begin());
}

TEST(Boundaries, SourcesIncludeTheStandardLibraryAndLowerRoomsOnly) {
  const std::regex own("^ *# *include *\"([a-z]+)/[^\"]+\"");
  const std::regex standard("^ *# *include *<[a-z_0-9]+>");  // no suffix, no folder
  const std::regex system(
      "\\b(getenv|fopen|time|clock|gettimeofday|system|popen|ifstream|"
      "ofstream|filesystem|chrono)\\b *[(<]");
  const fs::path source = fs::path(BRELMON_SOURCE_DIR) / "src";
  std::size_t files = 0;
  for (const auto& entry : fs::recursive_directory_iterator(source)) {
    const auto extension = entry.path().extension();
    if (extension != ".h" && extension != ".cpp") continue;
    ++files;
    const std::string room = fs::relative(entry.path(), source).begin()->string();
    std::ifstream in(entry.path());
    for (std::string line; std::getline(in, line);) {
      std::smatch match;
      if (line.find("#include") != std::string::npos) {
        const bool lower = std::regex_search(line, match, own) && Level(match[1]) <= Level(room);
        EXPECT_TRUE(lower || std::regex_search(line, standard)) << entry.path() << ": " << line;
      } else if (line.find("//") == std::string::npos) {
        EXPECT_FALSE(std::regex_search(line, system)) << entry.path() << ": " << line;
      }
    }
  }
  EXPECT_GT(files, 100u);
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
