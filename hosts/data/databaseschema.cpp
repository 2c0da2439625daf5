// SPDX-License-Identifier: GPL-2.0-or-later
// A connection of our own knows no extension: what a virtual table would call isn't called.
#include "hosts/data/databaseschema.h"

#include <cpl_string.h>
#include <cpl_vsi.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cstring>
#include <memory>
#include <string_view>

namespace brelmon::data {
namespace {

constexpr std::string_view kMagic("SQLite format 3\0", 16);
constexpr vsi_l_offset kLargestInArchive = vsi_l_offset{256} << 20;

/// Modules whose tables are indexes of the tables beside them.
constexpr std::array<std::string_view, 8> kModules = {
    "rtree",      "rtree_i32", "fts3", "fts4", "fts5", "virtualspatialindex", "virtualelementary",
    "virtualknn2"};

struct CloseDatabase {
  void operator()(sqlite3* database) const { sqlite3_close(database); }
};
using Database = std::unique_ptr<sqlite3, CloseDatabase>;

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

Database OpenedAs(const std::string& name, int flags) {
  sqlite3* opened = nullptr;
  const int status = sqlite3_open_v2(name.c_str(), &opened, SQLITE_OPEN_READONLY | flags, nullptr);
  Database database(opened);
  // A file is looked at only when something is asked of it.
  const bool readable = status == SQLITE_OK && sqlite3_exec(opened, "SELECT 1 FROM sqlite_master",
                                                            nullptr, nullptr, nullptr) == SQLITE_OK;
  return readable ? std::move(database) : nullptr;
}

std::string Uri(const std::string& path) {
  char* escaped = CPLEscapeString(path.c_str(), -1, CPLES_URL);
  std::string uri = std::string("file:") + escaped + "?immutable=1";
  CPLFree(escaped);
  return uri;
}

/// One in an archive is read into memory.
Database InMemory(const std::string& path) {
  GByte* bytes = nullptr;
  vsi_l_offset size = 0;
  if (!VSIIngestFile(nullptr, path.c_str(), &bytes, &size, kLargestInArchive)) return nullptr;
  const std::unique_ptr<GByte, decltype(&VSIFree)> owner(bytes, VSIFree);
  Database database = OpenedAs(":memory:", 0);
  auto* copy = static_cast<unsigned char*>(sqlite3_malloc64(size));
  if (!database || copy == nullptr) return nullptr;
  std::copy_n(bytes, size, copy);
  const auto length = static_cast<sqlite3_int64>(size);
  const int status =
      sqlite3_deserialize(database.get(), "main", copy, length, length,
                          SQLITE_DESERIALIZE_FREEONCLOSE | SQLITE_DESERIALIZE_READONLY);
  return status == SQLITE_OK ? std::move(database) : nullptr;
}

Database Opened(const std::string& path) {
  if (path.rfind("/vsi", 0) == 0) return InMemory(path);
  Database database = OpenedAs(path, 0);
  // One with a log of its own wants to write beside itself, which a folder may not allow.
  const bool logged = ::access((path + "-wal").c_str(), F_OK) == 0;
  return database || logged ? std::move(database) : OpenedAs(Uri(path), SQLITE_OPEN_URI);
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
  const Database database = Opened(path);
  sqlite3_stmt* rows = nullptr;
  // The program's own word for what a table is; its text may hold anything.
  constexpr const char* kVirtual =
      "SELECT l.name, s.sql FROM pragma_table_list l LEFT JOIN sqlite_master s ON s.name = l.name "
      "AND s.type = 'table' WHERE l.type = 'virtual' AND l.schema = 'main'";
  if (!database || sqlite3_prepare_v2(database.get(), kVirtual, -1, &rows, nullptr) != SQLITE_OK) {
    return kUnreadableSchema +
           (database ? std::string(": ") + sqlite3_errmsg(database.get()) : std::string());
  }
  const std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> owner(rows, sqlite3_finalize);
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
