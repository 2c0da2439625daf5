// SPDX-License-Identifier: GPL-2.0-or-later
// Numbered text files over the host's byte streams.
#include "platform/textfile.h"

#include <map>

#include "platform/codepage.h"

namespace brelmon::textfile {
namespace {

constexpr std::int32_t kLastNumber = 511;
constexpr std::size_t kChunk = 65536;

struct OpenFile {
  FileMode mode;
  std::unique_ptr<IByteStream> stream;
  std::string buffer;
  std::size_t position = 0;  // of the first unread byte in the buffer

  /// Whether there is an unread byte; reads on where the buffer is used up.
  bool Fill() {
    if (position < buffer.size()) return true;
    buffer.clear();
    position = 0;
    buffer = stream->Read(kChunk);
    return !buffer.empty();
  }
};

std::map<std::int32_t, OpenFile>& Files() {
  static std::map<std::int32_t, OpenFile> files;
  return files;
}

OpenFile& Find(std::int32_t number, bool forReading) {
  const auto hit = Files().find(number);
  if (hit == Files().end()) Raise(failure::kBadFileNumber, 0);
  if ((hit->second.mode == FileMode::Input) != forReading) Raise(failure::kBadFileMode, 0);
  return hit->second;
}

}  // namespace

void Open(std::int32_t number, const Text& path, FileMode mode) {
  if (number < 1 || number > kLastNumber) Raise(failure::kBadFileNumber, 0);
  if (Files().count(number) != 0) Raise(failure::kFileAlreadyOpen, 0);
  auto stream = FileSystem().Open(path, mode);
  if (!stream) Raise(failure::kPathFileAccess, 0);
  Files()[number] = OpenFile{mode, std::move(stream), {}};
}

bool AtEnd(std::int32_t number) { return !Find(number, true).Fill(); }

Text LineInput(std::int32_t number) {
  OpenFile& file = Find(number, true);
  if (!file.Fill()) Raise(failure::kInputPastEnd, 0);
  std::string line;
  do {
    const std::size_t end = file.buffer.find('\r', file.position);
    line.append(file.buffer, file.position, end - file.position);
    if (end != std::string::npos) {
      file.position = end + 1;
      if (file.Fill() && file.buffer[file.position] == '\n') ++file.position;
      break;
    }
    file.position = file.buffer.size();
  } while (file.Fill());
  return FromWindows1252(line);
}

void PrintLine(std::int32_t number, const Text& line) {
  Find(number, false).stream->Write(ToWindows1252(line) + "\r\n");
}

void Close(std::int32_t number) {
  auto closed = Files().extract(number);
  if (!closed.empty()) closed.mapped().stream->Close();
}

void CloseAll() { Files().clear(); }

}  // namespace brelmon::textfile
