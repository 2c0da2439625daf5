// SPDX-License-Identifier: GPL-2.0-or-later
// Data that is not whole: no figure comes of it, and every tool says why.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <functional>

#include "tests/hostile/hostilemodule.h"
#include "tests/hostile/supervisor.h"

namespace brelmon::hostile {
namespace {

namespace fs = std::filesystem;

struct Damage {
  const char* name;
  const char* reason;
  std::function<void(const HostileModule&)> harm;
  const char* source = "./data/quakes.shp";
};

void Resize(const HostileModule& module, const char* name, std::uintmax_t size) {
  fs::resize_file(module.Path(name), size);
}

/// A number of the header, or of the file's other parts, changed in place.
void Overwrite(const HostileModule& module, const char* name, std::size_t at, const char* bytes) {
  std::string whole = BytesOf(module.Path(name));
  whole.replace(at, std::char_traits<char>::length(bytes), bytes);
  module.Write(name, whole);
}

void MakeDatabase(const HostileModule& module) {
  module.Database("data/a.sqlite",
                  "CREATE TABLE it (n INTEGER, t TEXT); WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL "
                  "SELECT i + 1 FROM c WHERE i < 2000) INSERT INTO it SELECT i, hex(zeroblob(20)) "
                  "FROM c");
}

std::vector<Damage> Damages() {
  return {
      {"TableCutToHalf", "the .dbf file is cut short",
       [](const auto& module) { module.CutToHalf("data/quakes.dbf"); }},
      {"TableCutByOneRecord", "the .dbf file is cut short",
       [](const auto& module) {
         Resize(module, "data/quakes.dbf", fs::file_size(module.Path("data/quakes.dbf")) - 40);
       }},
      {"TableEmpty", "the .dbf file is empty",
       [](const auto& module) { Resize(module, "data/quakes.dbf", 0); }},
      {"TableUnreadable", "is a pipe or a device",
       [](const auto& module) {
         fs::remove(module.Path("data/quakes.dbf"));
         fs::create_symlink("/dev/zero", module.Path("data/quakes.dbf"));
       }},
      {"TableMissing", "the .dbf file is missing",
       [](const auto& module) { fs::remove(module.Path("data/quakes.dbf")); }},
      {"FewerRecordsThanShapes", "its parts disagree",
       [](const auto& module) { Overwrite(module, "data/quakes.dbf", 4, "\x10\x01"); }},
      {"HeaderOfLongerRecords", "the .dbf file is cut short",
       [](const auto& module) { Overwrite(module, "data/quakes.dbf", 8, "\x01\x01\x01\x01"); }},
      {"ShapesCutToHalf", "the .shp file is cut short",
       [](const auto& module) { module.CutToHalf("data/quakes.shp"); }},
      {"IndexCutToHalf", "the .shx file is cut short",
       [](const auto& module) { module.CutToHalf("data/quakes.shx"); }},
      {"DatabaseCutToHalf", "its schema can't be read",
       [](const auto& module) {
         MakeDatabase(module);
         module.CutToHalf("data/a.sqlite");
       },
       "./data/a.sqlite|layername=it"},
      {"DatabaseWithABrokenPage", "malformed",
       [](const auto& module) {
         MakeDatabase(module);
         Overwrite(module, "data/a.sqlite", 4096 * 20, "\x77\x77\x77\x77\x77\x77\x77\x77\x77");
       },
       "./data/a.sqlite|layername=it"},
      {"GeoJsonCut", "JSON",
       [](const auto& module) {
         module.Write("data/a.geojson", R"({"type":"FeatureCollection","features":[{"type":)"
                                        R"("Feature","geometry":null,"properties":{"n":1}},{"ty)");
       },
       "./data/a.geojson"},
  };
}

class DamageTest : public testing::TestWithParam<Damage> {};

TEST_P(DamageTest, GivesNoFigure) {
  const HostileModule module;
  GetParam().harm(module);
  module.Layer("ogr", GetParam().source);
  const std::string field = std::string(GetParam().source).find("quakes") < 99 ? "mag" : "n";
  const std::vector<std::vector<std::string>> actions = {
      {"statistics", "it", field, "--all"}, {"query", "it", "1 = 1", "--new"}, {"check"}};
  std::string told;
  for (const auto& action : actions) {
    std::vector<std::string> words{BRELMON_PROGRAM, module.Path()};
    words.insert(words.end(), action.begin(), action.end());
    const Watched watched = Supervise(words, module.Path());
    EXPECT_EQ(watched.status, 1) << action[0] << watched.out << watched.err;
    EXPECT_EQ(watched.out.find("Total"), std::string::npos) << watched.out;
    told += watched.out + watched.err;
    const bool named = watched.out.find("\"it\"") != std::string::npos;
    EXPECT_TRUE(named || action[0] != "check") << watched.out;
  }
  told += Supervise({BRELMON_PROGRAM, module.Path(), "contents"}, module.Path()).err;
  EXPECT_NE(told.find(GetParam().reason), std::string::npos) << told;
}

INSTANTIATE_TEST_SUITE_P(Hostile, DamageTest, testing::ValuesIn(Damages()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Limits, FewFilesOpenAreToldAsWhatTheyAre) {
  const HostileModule module;
  module.Layer("ogr", "./data/quakes.shp");
  const std::string program = std::string(BRELMON_PROGRAM) + " . contents";
  // Whatever the runner of the tests has open counts too.
  const std::string closed = "for f in 3 4 5 6 7 8 9; do eval \"exec $f>&-\"; done; ";
  const Watched watched =
      Supervise({"/bin/bash", "-c", closed + "ulimit -n 5; exec " + program}, module.Path());
  EXPECT_NE(watched.err.find("too many files are open"), std::string::npos)
      << watched.out << watched.err;
}

/// As somebody who may not: root is made nobody.
Watched RunAsNobody(const HostileModule& module, const std::vector<std::string>& action) {
  fs::permissions(module.Path(), fs::perms(0755));
  std::vector<std::string> words;
  if (::geteuid() == 0) {
    words = {"/usr/bin/setpriv", "--reuid", "65534", "--regid", "65534", "--clear-groups"};
  }
  for (const std::string& word : {std::string(BRELMON_PROGRAM), module.Path()}) {
    words.push_back(word);
  }
  words.insert(words.end(), action.begin(), action.end());
  return Supervise(words, module.Path());
}

TEST(Permissions, WhatMayNotBeReadIsNamed) {
  struct Row {
    const char *file, *told;
    std::vector<std::string> action;
  };
  const Row rows[] = {
      {"data/quakes.shp", "ermission denied", {"statistics", "it", "mag", "--all"}},
      {"data/quakes.dbf", "ermission denied", {"statistics", "it", "mag", "--all"}},
      {"data/quakes.shx", "ermission denied", {"values", "it", "mag"}},
      {"data/quakes.dbf", "\"it\"", {"check"}},
      {"QuickLoad.txt", "QuickLoad.txt", {"check"}},
      {"QuickLoad.txt", "QuickLoad.txt", {"quickload", "list"}},
      {"media_list.txt", "media_list.txt", {"check"}},
      {"media_list.txt", "media_list.txt", {"media", "list"}},
      {"map.qgs", "map.qgs", {"contents"}},
  };
  for (const Row& row : rows) {
    const HostileModule module;
    module.Layer("ogr", "./data/quakes.shp");
    module.Write("QuickLoad.txt", "<Query>\r\nfirst\r\nmag > 6\r\n");
    const Watched allowed = RunAsNobody(module, row.action);
    EXPECT_EQ(allowed.status, 0) << row.file << allowed.out << allowed.err;
    fs::permissions(module.Path(row.file), fs::perms::none);
    const Watched watched = RunAsNobody(module, row.action);
    EXPECT_EQ(watched.status, 1) << row.file << watched.out << watched.err;
    const std::string all = watched.out + watched.err;
    EXPECT_NE(all.find(row.told), std::string::npos) << row.file << row.action[0] << all;
    EXPECT_EQ(watched.out.find("Total"), std::string::npos) << watched.out;
  }
}

TEST(Limits, LayersByTheHundredNeedFewOpenFiles) {
  constexpr int kLayers = 300;
  const HostileModule module;
  std::string tree, layers;
  for (int i = 0; i < kLayers; ++i) {
    const std::string name = "t" + std::to_string(i);
    fs::create_hard_link(module.Path("data/quakes.dbf"), module.Path("data/" + name + ".dbf"));
    tree += "<layer-tree-layer id=\"" + name + "\" name=\"" + name + "\"/>";
    layers += "<maplayer type=\"vector\"><id>" + name + "</id><layername>" + name +
              "</layername><datasource>./data/" + name +
              ".dbf</datasource><provider>ogr</provider></maplayer>";
  }
  module.Write("map.qgs", "<qgis><layer-tree-group>" + tree + "</layer-tree-group><projectlayers>" +
                              layers + "</projectlayers></qgis>");
  const Watched watched = Supervise(
      {"/bin/bash", "-c", "ulimit -n 128; exec " + std::string(BRELMON_PROGRAM) + " . contents"},
      module.Path());
  std::size_t valid = 0;
  for (std::size_t at = 0; (at = watched.out.find("  1707", at)) != std::string::npos; ++at) {
    ++valid;
  }
  EXPECT_EQ(valid, std::size_t{kLayers}) << watched.out.substr(0, 400) << watched.err;
  EXPECT_EQ(watched.status, 0) << watched.err;
}

/// A few letters of a clause that ask for a text of hundreds of millions.
TEST(Limits, AClauseDoesNotFillTheMemory) {
  const HostileModule module;
  module.Database("data/a.sqlite", "CREATE TABLE it (n INTEGER); INSERT INTO it VALUES (1)");
  module.Layer("ogr", "./data/a.sqlite|layername=it");
  std::string text = "'aaaaaaaaaa'";
  for (int i = 0; i < 7; ++i) text = "replace(" + text + ",'a','aaaaaaaaaa')";
  text = "length(replace(" + text + ",'a','aaaaaaaaa')) > n";
  const Watched watched =
      Supervise({BRELMON_PROGRAM, module.Path(), "query", "it", text, "--new"}, module.Path());
  EXPECT_EQ(watched.status, 1) << watched.out;
}

TEST(Limits, GroupsNestedWithoutEndAreRefused) {
  const HostileModule module;
  std::string tree;
  for (int i = 0; i < 12000; ++i) tree += "<layer-tree-group name=\"g\">";
  for (int i = 0; i < 12000; ++i) tree += "</layer-tree-group>";
  module.Write("map.qgs", "<qgis><layer-tree-group>" + tree + "</layer-tree-group></qgis>");
  const Watched watched = Supervise({BRELMON_PROGRAM, module.Path(), "contents"}, module.Path());
  EXPECT_EQ(watched.status, 1);
  EXPECT_NE(watched.err.find("nested more than 200 deep"), std::string::npos) << watched.err;
}

TEST(Terminal, NeverGetsAModulesControlCharacters) {
  const HostileModule module;
  module.Layer("ogr", "./data/no\x1b]0;such\x07 \xC2\x9B\xE2\x80\xAE.shp");
  module.Write("media_list.txt", "a\x1b[31mb\x07:x.pdf,6\r\n");
  const Watched watched =
      Supervise({BRELMON_PROGRAM, module.Path()}, module.Path(),
                "contents\nmedia list\nquery it \"x\x1b[2J\" --new\ncheck\n\x1b[2J\n");
  const std::string all = watched.out + watched.err;
  for (const char* raw : {"\x1b", "\x07", "\xC2\x9B", "\xE2\x80\xAE"}) {
    EXPECT_EQ(all.find(raw), std::string::npos) << all;
  }
  EXPECT_NE(all.find("a<U+001B>[31mb<U+0007>"), std::string::npos) << all;
}

}  // namespace
}  // namespace brelmon::hostile
