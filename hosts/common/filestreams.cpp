// SPDX-License-Identifier: GPL-2.0-or-later
// What happens to a file between its opening and its closing, also where its writer is killed.
#include "hosts/common/filestreams.h"

#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "hosts/common/hostfailure.h"
#include "platform/unfinishedmark.h"

namespace brelmon::host {
namespace {

void Lock(int descriptor) {
  while (::flock(descriptor, LOCK_EX) != 0 && errno == EINTR) {
  }
}

class FileStream : public IByteStream {
 public:
  explicit FileStream(int descriptor) : descriptor_(descriptor) {}
  ~FileStream() override {
    if (descriptor_ >= 0) ::close(descriptor_);
  }
  FileStream(const FileStream&) = delete;
  FileStream& operator=(const FileStream&) = delete;

  /// From now on somebody else closes the descriptor.
  void Release() { descriptor_ = -1; }

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
    Lock(descriptor_);
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

/// A file that is emptied and written anew. Until it is closed a mark stands behind what was
/// written so far, so that a list whose writer was killed isn't taken for one that was meant; those
/// who add to it meanwhile wait.
class RewritingStream : public FileStream {
 public:
  using FileStream::FileStream;
  ~RewritingStream() override { Settle(); }
  RewritingStream(const RewritingStream&) = delete;
  RewritingStream& operator=(const RewritingStream&) = delete;

  /// Before the first write. At no moment the file is short and without the mark.
  void Empty() {
    Lock(descriptor_);
    Write({});
    if (::ftruncate(descriptor_, static_cast<off_t>(kStoppedHere.size())) != 0) FailWriting();
  }

  void Write(const std::string& bytes) override {
    const std::string piece = bytes + (settled_ ? "" : std::string(kStoppedHere));
    std::size_t done = 0;
    while (done < piece.size()) {
      const ssize_t put = ::pwrite(descriptor_, piece.data() + done, piece.size() - done,
                                   written_ + static_cast<off_t>(done));
      if (put < 0 && errno == EINTR) continue;
      if (put < 0) {
        const int error = errno;
        written_ += static_cast<off_t>(std::min(done, bytes.size()));
        Settle();
        errno = error;
        FailWriting();
      }
      done += static_cast<std::size_t>(put);
    }
    written_ += static_cast<off_t>(bytes.size());
  }

  void Close() override {
    const bool settled = Settle();
    FileStream::Close();
    if (!settled) Fail(failure::kDeviceIo);
  }

 private:
  /// What was written so far is all that there is; whoever waits may go on.
  bool Settle() {
    if (descriptor_ < 0 || std::exchange(settled_, true)) return true;
    const bool cut = ::ftruncate(descriptor_, written_) == 0;
    ::flock(descriptor_, LOCK_UN);
    return cut;
  }

  off_t written_ = 0;
  bool settled_ = false;
};

}  // namespace

std::unique_ptr<IByteStream> NewFileStream(int descriptor, FileMode mode,
                                           const std::string& system) {
  auto plain = std::make_unique<FileStream>(descriptor);
  struct stat status {};
  const bool known = ::fstat(descriptor, &status) == 0;
  const bool device = known && S_ISCHR(status.st_mode) && mode != FileMode::Input;
  if (!device && (!known || !S_ISREG(status.st_mode))) {
    Fail(failure::kPathFileAccess, system + " is no regular file.");
  }
  if (mode == FileMode::Input || (device && mode == FileMode::Output)) return plain;
  plain->Release();
  if (mode == FileMode::Append) return std::make_unique<AddingStream>(descriptor);
  auto anew = std::make_unique<RewritingStream>(descriptor);
  anew->Empty();
  return anew;
}

}  // namespace brelmon::host
