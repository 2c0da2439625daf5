// SPDX-License-Identifier: GPL-2.0-or-later
// A fuzzer's bytes as what a reader reads: one file in memory, or one on the disk.
#pragma once

#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "platform/services.h"
#include "platform/textfile.h"

namespace brelmon::fuzz {

/// Ends the program as a fault would.
inline void Demand(bool holds) {
  if (!holds) std::abort();
}

/// The same, and says what wasn't.
inline void DemandSame(const std::string& ours, const std::string& theirs, const std::string& of) {
  if (ours == theirs) return;
  std::fprintf(stderr, "%s\nours:   %s\ntheirs: %s\n", of.c_str(), ours.c_str(), theirs.c_str());
  std::abort();
}

/// The only file there is, whatever its path.
class OneFile : public IFileSystem {
 public:
  std::string bytes;

  std::int32_t Attributes(const Text&) override { return 0; }
  std::unique_ptr<IByteStream> Open(const Text&, FileMode mode) override {
    if (mode == FileMode::Output) bytes.clear();
    return std::make_unique<Stream>(bytes);
  }
  std::int32_t GetLongPathName(const Text&, Text&) override { return 0; }
  std::int32_t GetTempPath(Text&) override { return 0; }
  Text FromTyped(const Text& typed) override { return typed; }

 private:
  class Stream : public IByteStream {
   public:
    explicit Stream(std::string& bytes) : bytes_(bytes) {}
    std::string Read(std::size_t size) override {
      const std::string read = bytes_.substr(std::min(at_, bytes_.size()), size);
      at_ += read.size();
      return read;
    }
    void Write(const std::string& added) override { bytes_ += added; }
    void Close() override {}

   private:
    std::string& bytes_;
    std::size_t at_ = 0;
  };
};

/// The process's services while it lives: the file, and nothing else.
class OneFileWorld {
 public:
  explicit OneFileWorld(std::string bytes) : scope_(Gathered()) { file.bytes = std::move(bytes); }
  ~OneFileWorld() { textfile::CloseAll(); }
  OneFile file;

 private:
  Services Gathered() {
    Services services;
    services.files = &file;
    return services;
  }
  ServicesScope scope_;
};

/// A file in a folder of the process's own, written anew each time.
inline std::string OnDisk(const std::string& ending, const std::uint8_t* data, std::size_t size) {
  struct Folder {
    Folder() { std::filesystem::create_directory(path); }
    ~Folder() {
      std::error_code ignored;
      std::filesystem::remove_all(path, ignored);
    }
    const std::string path = std::filesystem::temp_directory_path().string() + "/brelmon-fuzz" +
                             std::to_string(::getpid());
  };
  static const Folder folder;
  std::string file = folder.path + "/it" + ending;
  std::ofstream(file, std::ios::binary)
      .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  return file;
}

inline std::string BytesOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

}  // namespace brelmon::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
