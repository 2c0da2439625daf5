// SPDX-License-Identifier: GPL-2.0-or-later
// Writing under another name, looking at what came of it, renaming.
#include "hosts/columns/dbftable.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>

#include "hosts/columns/dbfcolumns.h"
#include "hosts/columns/dbfrecordtext.h"
#include "hosts/columns/unfinished.h"
#include "hosts/common/hostfailure.h"

namespace brelmon::columns {
namespace {

namespace fs = std::filesystem;

constexpr char kEndOfFile = '\x1A';

[[noreturn]] void FailWriting(const fs::path& file, int error) {
  if (error == ENOSPC) host::Fail(failure::kDiskFull, "The disk is full: the table wasn't whole.");
  if (error == EACCES || error == EROFS || error == EPERM) {
    host::Fail(failure::kPermissionDenied,
               "The folder " + file.parent_path().string() + " can't be written to.");
  }
  host::Fail(
      failure::kPathFileAccess,
      "The table can't be written" + (error ? std::string(": ") + std::strerror(error) : "."));
}

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

/// A file that must reach the disk whole. One that is there already, a link too, is an error.
class NewFile {
 public:
  explicit NewFile(fs::path path) : path_(std::move(path)) {
    errno = 0;
    file_.reset(std::fopen(path_.string().c_str(), "wbx"));
    Check(file_ != nullptr);
  }
  void Write(std::string_view bytes) {
    errno = 0;
    Check(std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) == bytes.size());
  }
  void Close() {
    errno = 0;
    Check(std::fclose(file_.release()) == 0);
  }

 private:
  void Check(bool done) {
    if (!done) FailWriting(path_, errno);
  }
  fs::path path_;
  std::unique_ptr<std::FILE, CloseFile> file_;
};

/// The table under its passing name. What is left of it when this ends is removed.
class PassingTable {
 public:
  explicit PassingTable(const fs::path& path)
      : path_(path), passing_(path.parent_path() / (path.stem().string() + OwnMark() + ".dbf")) {
    RemoveLeftovers(path.parent_path());
    for (const char* extension : kExtensions) Unfinished::Keep(With(passing_, extension).string());
  }
  ~PassingTable() {
    for (const char* extension : kExtensions) {
      std::error_code ignored;
      fs::remove(With(passing_, extension), ignored);
      Unfinished::Forget(With(passing_, extension).string());
    }
  }
  PassingTable(const PassingTable&) = delete;
  PassingTable& operator=(const PassingTable&) = delete;

  fs::path File(const char* extension) const { return With(passing_, extension); }

  /// The table's own file comes last.
  void Publish() {
    if (fs::exists(path_)) {
      host::Fail(failure::kFileExists, "There is a file " + path_.string() + " already.");
    }
    for (const char* extension : kExtensions) {
      std::error_code error;
      fs::rename(With(passing_, extension), With(path_, extension), error);
      if (!error) continue;
      std::error_code ignored;
      fs::remove(With(path_, ".cpg"), ignored);
      host::Fail(failure::kPathFileAccess, error.message());
    }
  }

 private:
  static constexpr const char* kExtensions[] = {".cpg", ".dbf"};
  static constexpr const char* kMark = "~making";

  static std::string OwnMark() {
    const auto own = Unfinished::TheProcesses().Own;
    return kMark + std::to_string(own ? own() : 0);
  }
  /// What runs left behind that were killed, and what another of this process's number was.
  static void RemoveLeftovers(const fs::path& folder) {
    const Processes& processes = Unfinished::TheProcesses();
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(folder, ignored)) {
      const std::string extension = entry.path().extension().string();
      const std::string stem = entry.path().stem().string();
      const std::size_t mark = stem.rfind(kMark);
      const bool ours = mark != std::string::npos && (extension == ".dbf" || extension == ".cpg");
      const std::string number = ours ? stem.substr(mark + std::strlen(kMark)) : "";
      if (number.empty() || number.size() > 9 ||
          number.find_first_not_of("0123456789") != std::string::npos) {
        continue;
      }
      const long maker = std::stol(number);
      const bool own = processes.Own && maker == processes.Own();
      if (own || (processes.Lives && !processes.Lives(maker))) fs::remove(entry.path(), ignored);
    }
  }
  fs::path With(const fs::path& table, const char* extension) const {
    if (table == path_ && std::string(extension) == ".dbf") return path_;
    fs::path other = table;
    return other.replace_extension(extension);
  }
  fs::path path_, passing_;
};

}  // namespace

void WriteDbfTable(const std::string& path, const CodePage& page, std::vector<DbfColumn> columns,
                   std::size_t records) {
  const fs::path folder = fs::path(path).parent_path();
  if (!fs::is_directory(folder)) {
    host::Fail(failure::kPathNotFound, "There is no folder " + folder.string() + ".");
  }
  if (fs::exists(path)) host::Fail(failure::kFileExists, "There is a file " + path + " already.");
  for (DbfColumn& column : columns) FitColumn(column, page);
  PassingTable passing(path);
  NewFile named(passing.File(".cpg"));
  named.Write(page.Name());
  named.Close();
  NewFile table(passing.File(".dbf"));
  table.Write(DbfHeader(columns, page, records));
  std::string text;
  constexpr std::size_t kPiece = std::size_t{1} << 16;
  for (std::size_t record = 0; record < records; ++record) {
    AppendRecord(columns, record, text);
    if (text.size() < kPiece) continue;
    table.Write(text);
    text.clear();
  }
  table.Write(text + kEndOfFile);
  table.Close();
  passing.Publish();
}

}  // namespace brelmon::columns
