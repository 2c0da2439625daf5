// SPDX-License-Identifier: GPL-2.0-or-later
// A module that works, with one fault after the other planted in it, and changes that are none.
#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "cli/checkhost.h"
#include "tests/hosts/tempfolder.h"

namespace brelmon::cli::test {
namespace {

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  for (auto at = text.find(from); at != text.npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
  return text;
}

const std::string kLayer =
    "<maplayer type=\"vector\" geometry=\"Point\">\n<id>quakes</id>\n"
    "<datasource>./data/quakes.geojson</datasource>\n<layername>quakes</layername>\n"
    "<provider encoding=\"UTF-8\">ogr</provider>\n</maplayer>\n";
const std::string kTree =
    "<layer-tree-group>\n<layer-tree-layer id=\"quakes\" name=\"quakes\"/>\n</layer-tree-group>\n";

const std::map<std::string, std::string> kSound = {
    {"map.qgs", "<qgis>\n" + kTree + "<projectlayers>\n" + kLayer + "</projectlayers>\n</qgis>\n"},
    {"layers/strong.qlr", "<qlr>\n" + kTree + "<maplayers>\n" + Replaced(kLayer, "./", "../") +
                              "</maplayers>\n</qlr>\n"},
    {"data/quakes.geojson",
     R"({"type": "FeatureCollection", "features": [
{"type": "Feature", "properties": {"MAG": 5.5, "DEPTH_KM": 400, "NET": "us"},
 "geometry": {"type": "Point", "coordinates": [1, 2]}},
{"type": "Feature", "properties": {"MAG": 2.5, "DEPTH_KM": 10, "NET": "ak"},
 "geometry": {"type": "Point", "coordinates": [3, 4]}}]})"},
    {"QuickLoad.txt",
     "A note, with a comma.\r\n<Layer>\r\nStrong\r\nlayers\\strong.qlr\r\n<Query>\r\nDeep\r\n"
     "\"DEPTH_KM\" > 300 AND \"MAG\" > 5\r\n\r\n"
     "<Bookmark>\r\nGulf\r\n-98\r\n17\r\n-80\r\n31\r\n"},
    {"media_list.txt",
     "What this module brings along.\r\nPlaces:globe/places.kml,0\r\nMap:images/map.png,1\r\n"
     "Site:http\xDF//example.org/,3\r\nLink:links/site.url,3\r\nNotes:docs/notes.rtf,5\r\n"
     "Guide:docs/guide.pdf,6\r\n"},
    {"links/site.url", "[InternetShortcut]\r\nURL=http://example.org/\r\n"},
    {"globe/places.kml", "x"},
    {"images/map.png", "x"},
    {"docs/notes.rtf", "x"},
    {"docs/guide.pdf", "x"},
    {"docs/page.html", "x"},
    {"docs/it's 'so'.pdf", "x"},
};

/// "\r", "\n", "\t", "\\" and "\xHH" undone.
std::string Unescaped(const std::string& text) {
  std::string bytes;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != '\\' || at + 1 == text.size()) {
      bytes += text[at];
      continue;
    }
    const char kind = text[++at];
    if (kind == 'x') {
      bytes += static_cast<char>(std::stoi(text.substr(at + 1, 2), nullptr, 16));
      at += 2;
    } else {
      bytes += kind == 'r' ? '\r' : kind == 'n' ? '\n' : kind == 't' ? '\t' : kind;
    }
  }
  return bytes;
}

/// One change of the module, and what is to be found then, a line each; nothing in a sound one.
struct Row {
  std::string locale, file, from, to, found;
};

std::vector<Row> Rows() {
  std::vector<Row> rows;
  std::istringstream lines(BytesOf(BRELMON_SOURCE_DIR "/tests/cli/plantedfaults.txt"));
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("  ")) {
      rows.back().found += line.substr(2) + "\n";
      continue;
    }
    const auto colon = line.find(": "), arrow = line.find(" => ");
    if (line.starts_with("#") || colon == line.npos || arrow == line.npos) continue;
    Row row;
    row.file = line.substr(0, colon);
    if (row.file[0] == '[') row.locale = row.file.substr(1, 2), row.file.erase(0, 5);
    row.from = Unescaped(line.substr(colon + 2, arrow - colon - 2));
    row.to = Unescaped(line.substr(arrow + 4));
    rows.push_back(row);
  }
  return rows;
}

/// The module on the disk, with one change at a time.
class Module {
 public:
  explicit Module(const std::string& name) : path_(above_.Path(name)) {
    for (const auto& [file, bytes] : kSound) Write(file, bytes);
  }
  const std::string& Path() const { return path_; }
  /// An empty `from` stands for the whole file.
  void Plant(const Row& row) {
    if (row.file == "rename") std::filesystem::rename(Full(row.from), Full(row.to));
    if (row.file == "delete") std::filesystem::remove(Full(row.from));
    const auto file = kSound.find(row.file);
    if (file == kSound.end()) return;
    EXPECT_NE(file->second.find(row.from), std::string::npos) << row.from;
    Write(row.file, row.from.empty() ? row.to : Replaced(file->second, row.from, row.to));
  }
  void Restore(const Row& row) {
    if (row.file == "rename") std::filesystem::remove(Full(row.to));
    const std::string file = kSound.contains(row.file) ? row.file : row.from;
    if (kSound.contains(file)) Write(file, kSound.at(file));
  }

 private:
  std::string Full(const std::string& file) const { return path_ + "/" + file; }
  void Write(const std::string& file, const std::string& bytes) {
    above_.Write(path_.substr(above_.Path().size() + 1) + "/" + file, Replaced(bytes, "@", path_));
  }
  TempFolder above_;
  std::string path_;
};

/// The findings, notes marked.
std::string Check(const Row& row, const std::string& path) {
  headless::HeadlessHost host(path);
  CheckHost sources(host);
  CheckedModule module = sources.Module();
  module.Locale = Locale();
  if (!row.locale.empty()) module.Locale.DecimalSymbol = u',';
  if (!row.locale.empty()) module.Locale.GroupSymbol = row.locale == "de" ? u'.' : u'\u00A0';
  std::string found;
  for (const Finding& each : CheckModule(module)) {
    found += (each.Grade == Severity::Note ? "(note) " : "") + ToUtf8(ToLine(each)) + "\n";
  }
  return Replaced(found, path, "@");
}

TEST(PlantedFaults, AreFoundOneByOneAndNothingElseIs) {
  int faults = 0, sound = 0;
  Module module("module"), other("Bob's maps");
  for (const Row& row : Rows()) {
    ++(row.found.empty() ? sound : faults);
    Module& planted = row.file == "folder" ? other : module;
    planted.Plant(row);
    EXPECT_EQ(Check(row, planted.Path()), row.found)
        << row.file << ": " << row.from << " => " << row.to;
    planted.Restore(row);
  }
  EXPECT_GE(faults, 100);
  EXPECT_GE(sound, 20);
}

}  // namespace
}  // namespace brelmon::cli::test
