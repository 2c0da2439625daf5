// SPDX-License-Identifier: GPL-2.0-or-later
// What each table of the database is.
#include "hosts/data/databaseschema.h"

#include <cpl_string.h>
#include <cpl_vsi.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cstring>
#include <string_view>

#include "hosts/data/sqlitedatabase.h"

namespace brelmon::data {
namespace {

constexpr std::string_view kMagic("SQLite format 3\0", 16);

/// Modules whose tables are indexes of the tables beside them.
constexpr std::array<std::string_view, 8> kModules = {
    "rtree",      "rtree_i32", "fts3", "fts4", "fts5", "virtualspatialindex", "virtualelementary",
    "virtualknn2"};

bool IsDatabase(const std::string& path) {
  VSIStatBufL status;
  if (VSIStatL(path.c_str(), &status) != 0 || VSI_ISDIR(status.st_mode)) return false;
  VSILFILE* file = VSIFOpenL(path.c_str(), "rb");
  if (file == nullptr) return false;
  std::array<char, kMagic.size()> head{};
  const std::size_t got = VSIFReadL(head.data(), 1, head.size(), file);
  VSIFCloseL(file);
  return std::string_view(head.data(), got) == kMagic;
}

std::string Column(sqlite3_stmt* row, int column) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
  return text ? text : "";
}

std::size_t SkipBlanks(const std::string& text, std::size_t at) {
  return std::min(text.find_first_not_of(" \t\r\n", at), text.size());
}

/// Behind a name in any of its quotes; the text's end where it isn't closed.
std::size_t BehindName(const std::string& sql, std::size_t at) {
  if (at >= sql.size()) return at;
  const char open = sql[at];
  if (std::string_view("\"'`[").find(open) == std::string_view::npos) {
    return std::min(sql.find_first_of(" \t\r\n(.\"'`[", at), sql.size());
  }
  const char close = open == '[' ? ']' : open;
  for (++at; at < sql.size(); ++at) {
    if (sql[at] != close) continue;
    if (at + 1 == sql.size() || sql[at + 1] != close || close == ']') return at + 1;
    ++at;
  }
  return sql.size();
}

/// Behind a word regardless of case and the blanks after it; npos where another stands there.
std::size_t BehindWord(const std::string& sql, std::size_t at, const char* word) {
  const std::size_t length = std::strlen(word);
  if (!EQUALN(sql.c_str() + at, word, length)) return std::string::npos;
  return SkipBlanks(sql, at + length);
}

}  // namespace

bool KeepsToItsDatabase(const std::string& sql) {
  std::size_t at = BehindWord(sql, 0, "CREATE VIRTUAL TABLE ");
  if (at == std::string::npos) return false;
  at = BehindWord(sql, SkipBlanks(sql, BehindName(sql, at)), "USING ");
  if (at == std::string::npos) return false;
  std::string module = sql.substr(at, BehindName(sql, at) - at);
  std::erase_if(module, [](char unit) { return std::strchr("\"'`[]", unit) != nullptr; });
  std::transform(module.begin(), module.end(), module.begin(),
                 [](unsigned char unit) { return static_cast<char>(std::tolower(unit)); });
  return std::find(kModules.begin(), kModules.end(), module) != kModules.end();
}

std::string RefusalOfSchema(const std::string& path) {
  if (!IsDatabase(path)) return {};
  const Database database = OpenDatabase(path);
  sqlite3_stmt* rows = nullptr;
  // The program's own word for what a table is; its text may hold anything.
  constexpr const char* kVirtual =
      "SELECT l.name, s.sql FROM pragma_table_list l LEFT JOIN sqlite_master s ON s.name = l.name "
      "AND s.type = 'table' WHERE l.type = 'virtual' AND l.schema = 'main'";
  if (!database || sqlite3_prepare_v2(database.get(), kVirtual, -1, &rows, nullptr) != SQLITE_OK) {
    return kUnreadableSchema +
           (database ? std::string(": ") + sqlite3_errmsg(database.get()) : std::string());
  }
  const Statement owner(rows);
  int status = SQLITE_ROW;
  while ((status = sqlite3_step(rows)) == SQLITE_ROW) {
    if (!KeepsToItsDatabase(Column(rows, 1))) {
      return "its table \"" + Column(rows, 0) + "\" stands for something outside of it";
    }
  }
  return status == SQLITE_DONE
             ? ""
             : std::string(kUnreadableSchema) + ": " + sqlite3_errmsg(database.get());
}

}  // namespace brelmon::data
