// SPDX-License-Identifier: GPL-2.0-or-later
// The file system's calls, with its errors as the platform's numbers.
#include "hosts/common/filesystem.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <utility>

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

class FileStream : public IByteStream {
 public:
  explicit FileStream(int descriptor) : descriptor_(descriptor) {}
  ~FileStream() override {
    if (descriptor_ >= 0) ::close(descriptor_);
  }
  FileStream(const FileStream&) = delete;
  FileStream& operator=(const FileStream&) = delete;

  std::string Read(std::size_t size) override {
    std::string bytes(size, '\0');
    ssize_t got = 0;
    do {
      got = ::read(descriptor_, bytes.data(), size);
    } while (got < 0 && errno == EINTR);
    if (got < 0) Fail(failure::kDeviceIo);
    bytes.resize(static_cast<std::size_t>(got));
    return bytes;
  }

  void Write(const std::string& bytes) override {
    std::size_t done = 0;
    while (done < bytes.size()) {
      const ssize_t put = ::write(descriptor_, bytes.data() + done, bytes.size() - done);
      if (put < 0 && errno == EINTR) continue;
      if (put < 0) FailWriting();
      done += static_cast<std::size_t>(put);
    }
  }

  void Close() override {
    const int closed = std::exchange(descriptor_, -1);
    if (closed >= 0 && ::close(closed) != 0 && errno != EINTR) FailWriting();
  }

 protected:
  [[noreturn]] static void FailWriting() {
    Fail(errno == ENOSPC || errno == EDQUOT ? failure::kDiskFull : failure::kDeviceIo);
  }

  int descriptor_;
};

/// What is added to a file goes there in one piece when the stream is closed, or not at all:
/// several programs may add at once, and a piece that doesn't fit is taken back.
class AddingStream : public FileStream {
 public:
  using FileStream::FileStream;
  ~AddingStream() override {
    try {
      Close();
    } catch (const Failure&) {  // nobody is there to be told
    }
  }
  AddingStream(const AddingStream&) = delete;
  AddingStream& operator=(const AddingStream&) = delete;

  void Write(const std::string& bytes) override { piece_ += bytes; }

  void Close() override {
    if (!piece_.empty()) Add(std::exchange(piece_, {}));
    FileStream::Close();
  }

 private:
  void Add(const std::string& piece) {
    // Where nothing can be locked one write must do.
    while (::flock(descriptor_, LOCK_EX) != 0 && errno == EINTR) {
    }
    struct stat before {};
    const bool known = ::fstat(descriptor_, &before) == 0 && S_ISREG(before.st_mode);
    try {
      FileStream::Write(piece);
    } catch (const Failure&) {
      if (known && ::ftruncate(descriptor_, before.st_size) != 0) {
        Fail(failure::kDeviceIo, "A part of what was to be added stands at the end of the file.");
      }
      throw;
    }
  }

  std::string piece_;
};

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
                      : mode == FileMode::Output ? O_WRONLY | O_CREAT | O_TRUNC
                                                 : O_WRONLY | O_CREAT | O_APPEND;
    if (mode != FileMode::Input && LeadsOut(*system)) {
      Fail(failure::kPermissionDenied, *system + " is a link out of its folder.");
    }
    // A pipe would keep its reader waiting for ever.
    const int descriptor = ::open(system->c_str(), flags | O_CLOEXEC | O_NONBLOCK, 0666);
    if (descriptor < 0) Fail(errno == ENXIO ? failure::kPathFileAccess : NumberOf(errno));
    std::unique_ptr<FileStream> stream;
    if (mode == FileMode::Append) {
      stream = std::make_unique<AddingStream>(descriptor);
    } else {
      stream = std::make_unique<FileStream>(descriptor);
    }
    struct stat status {};
    const bool known = ::fstat(descriptor, &status) == 0;
    const bool device = mode != FileMode::Input && S_ISCHR(status.st_mode);
    if (!known || (!S_ISREG(status.st_mode) && !device)) {
      Fail(failure::kPathFileAccess, *system + " is no regular file.");
    }
    return stream;
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
