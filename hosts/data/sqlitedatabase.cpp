// SPDX-License-Identifier: GPL-2.0-or-later
// Files, files of folders that allow no writing, files in archives.
#include "hosts/data/sqlitedatabase.h"

#include <cpl_conv.h>
#include <cpl_string.h>
#include <cpl_vsi.h>
#include <unistd.h>

#include <algorithm>

namespace brelmon::data {
namespace {

constexpr vsi_l_offset kLargestInArchive = vsi_l_offset{256} << 20;

Database OpenedAs(const std::string& name, int flags) {
  sqlite3* opened = nullptr;
  const int status = sqlite3_open_v2(name.c_str(), &opened,
                                     SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX | flags, nullptr);
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

}  // namespace

Database OpenDatabase(const std::string& path) {
  if (path.rfind("/vsi", 0) == 0) return InMemory(path);
  Database database = OpenedAs(path, 0);
  // One with a log of its own wants to write beside itself, which a folder may not allow.
  const bool logged = ::access((path + "-wal").c_str(), F_OK) == 0;
  return database || logged ? std::move(database) : OpenedAs(Uri(path), SQLITE_OPEN_URI);
}

}  // namespace brelmon::data
