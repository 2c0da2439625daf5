// SPDX-License-Identifier: GPL-2.0-or-later
// The file system's calls, with its errors as the platform's numbers.
#include "hosts/common/filesystem.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include "hosts/common/filestreams.h"
#include "hosts/common/hostfailure.h"

namespace brelmon::host {
namespace {

/// What of an error outside of opening a file means; 57 where nothing better is known.
std::int32_t NumberOf(int error) {
  switch (error) {
    case ENOENT:
      return failure::kFileNotFound;
    case ENOTDIR:
      return failure::kPathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case ETXTBSY:
      return failure::kPermissionDenied;
    case EISDIR:
      return failure::kPathFileAccess;
    case ENOSPC:
    case EDQUOT:
      return failure::kDiskFull;
    default:
      return failure::kDeviceIo;
  }
}

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == 0 || slash == std::string::npos ? "/" : path.substr(0, slash);
}

/// A link to another folder is read, and never written through.
bool LeadsOut(const std::string& path) {
  std::error_code error;
  if (!std::filesystem::is_symlink(path, error)) return false;
  const auto folder = std::filesystem::canonical(FolderOf(path), error);
  const auto target = std::filesystem::weakly_canonical(path, error);
  return error || target.parent_path() != folder;
}

class SystemFiles : public IFileSystem {
 public:
  explicit SystemFiles(Paths paths) : paths_(std::move(paths)) {}

  std::int32_t Attributes(const Text& path) override {
    const auto system = paths_.ToSystem(path);
    if (!system) Fail(failure::kFileNotFound);
    struct stat status {};
    if (::stat(system->c_str(), &status) != 0) {
      Fail(errno == EACCES ? failure::kPathFileAccess : failure::kFileNotFound);
    }
    // A closing separator asks for a folder.
    const bool folder = S_ISDIR(status.st_mode);
    if (!folder && (path.back() == u'\\' || path.back() == u'/')) Fail(failure::kFileNotFound);
    return folder ? 16 : 0;
  }

  std::unique_ptr<IByteStream> Open(const Text& path, FileMode mode) override {
    const auto system = paths_.ToSystem(path);
    if (!system || !FolderExists(FolderOf(*system))) Fail(failure::kPathNotFound);
    if (FolderExists(*system)) Fail(failure::kPathFileAccess);
    const int flags = mode == FileMode::Input    ? O_RDONLY
                      : mode == FileMode::Output ? O_WRONLY | O_CREAT
                                                 : O_WRONLY | O_CREAT | O_APPEND;
    if (mode != FileMode::Input && LeadsOut(*system)) {
      Fail(failure::kPermissionDenied, *system + " is a link out of its folder.");
    }
    // A pipe would keep its reader waiting for ever.
    const int descriptor = ::open(system->c_str(), flags | O_CLOEXEC | O_NONBLOCK, 0666);
    if (descriptor < 0) {
      const std::int32_t number = errno == ENXIO ? failure::kPathFileAccess : NumberOf(errno);
      // Which of a module's files it was nobody else tells.
      if (number == failure::kPermissionDenied) Fail(number, "Permission denied: " + *system);
      Fail(number);
    }
    return NewFileStream(descriptor, mode, *system);
  }

  Text FromTyped(const Text& typed) override {
    return typed.starts_with(u'/') ? paths_.ToWindows(ToUtf8(typed)) : typed;
  }

  std::int32_t GetLongPathName(const Text& path, Text& buffer) override {
    const auto system = paths_.ToSystem(path);
    if (!system || (!FileExists(*system) && !FolderExists(*system))) return 0;
    buffer = InTrueCase(path, *system);
    return static_cast<std::int32_t>(buffer.size());
  }

  std::int32_t GetTempPath(Text& buffer) override {
    const char* named = std::getenv("TMPDIR");
    std::string folder = named != nullptr && *named == '/' ? named : "/tmp";
    while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
    buffer = paths_.ToWindows(folder == "/" ? "" : folder) + u"\\";
    return static_cast<std::int32_t>(buffer.size());
  }

 private:
  /// The path as it was given, its names replaced by those on the disk from the end on. What
  /// stands before them (a drive letter, the way to the home) stays.
  static Text InTrueCase(const Text& path, const std::string& system) {
    Text result = path;
    const Text real = FromUtf8(system);
    std::size_t at = result.size(), from = real.size();
    while (at > 0 && (result[at - 1] == u'\\' || result[at - 1] == u'/')) --at;
    while (at > 0 && from > 0) {
      const bool separator = result[at - 1] == u'\\' || result[at - 1] == u'/';
      if (separator != (real[from - 1] == u'/')) break;
      if (!separator && FoldCase(result[at - 1]) != FoldCase(real[from - 1])) break;
      --at, --from;
      if (!separator) result[at] = real[from];
    }
    return result;
  }

  Paths paths_;
};

}  // namespace

std::unique_ptr<IFileSystem> NewFileSystem(Paths paths) {
  return std::make_unique<SystemFiles>(std::move(paths));
}

}  // namespace brelmon::host
