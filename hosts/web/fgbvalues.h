// SPDX-License-Identifier: GPL-2.0-or-later
// Values of a row in a FlatGeobuf table.
#pragma once

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <string>

#include "hosts/columns/batch.h"

namespace brelmon::web {

/// What a column's values are in the file.
enum class FileType : std::uint8_t {
  Byte,
  UByte,
  Bool,
  Short,
  UShort,
  Int,
  UInt,
  Long,
  ULong,
  Float,
  Double,
  String,
  Json,
  DateTime,
  Binary,
};

[[noreturn]] inline void RefuseTable(const std::string& reason) {
  throw std::runtime_error(reason);
}

inline columns::Storage StorageOf(FileType type) {
  switch (type) {
    case FileType::Float:
    case FileType::Double:
      return columns::Storage::Real;
    case FileType::String:
    case FileType::Json:
      return columns::Storage::Text;
    case FileType::DateTime:
      return columns::Storage::Moment;
    case FileType::Binary:
      return columns::Storage::Other;
    default:
      return columns::Storage::Whole;
  }
}

/// The numbers between other characters: "2026-11-16T14:15:07.5Z" has six of them and a fraction.
inline columns::Moment MomentOf(std::string_view text) {
  int parts[6] = {0, 1, 1, 0, 0, 0};
  std::size_t at = 0;
  for (int& part : parts) {
    if (at >= text.size() || text[at] < '0' || text[at] > '9') break;
    for (part = 0; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
      part = std::min(part * 10 + (text[at] - '0'), 9999);
    }
    ++at;  // what stands between
  }
  columns::Moment moment;
  moment.Year = static_cast<std::int16_t>(parts[0]);
  moment.Month = static_cast<std::uint8_t>(parts[1]);
  moment.Day = static_cast<std::uint8_t>(parts[2]);
  moment.Hour = static_cast<std::uint8_t>(parts[3]);
  moment.Minute = static_cast<std::uint8_t>(parts[4]);
  moment.Second = static_cast<float>(parts[5]);
  return moment;
}

/// The properties of a row, taken one by one off the front.
class Properties {
 public:
  explicit Properties(std::string_view bytes) : rest_(bytes) {}
  bool AtEnd() const { return rest_.empty(); }
  template <class T>
  T Take() {
    T value;
    std::memcpy(&value, TakeBytes(sizeof value).data(), sizeof value);
    return value;
  }
  std::string_view TakeBytes(std::size_t size) {
    if (rest_.size() < size) RefuseTable("a row is cut short");
    const std::string_view taken = rest_.substr(0, size);
    rest_.remove_prefix(size);
    return taken;
  }
  std::string_view TakeText() { return TakeBytes(Take<std::uint32_t>()); }
  std::int64_t TakeWhole(FileType type) {
    switch (type) {
      case FileType::Byte:
        return Take<std::int8_t>();
      case FileType::Short:
        return Take<std::int16_t>();
      case FileType::UShort:
        return Take<std::uint16_t>();
      case FileType::Int:
        return Take<std::int32_t>();
      case FileType::UInt:
        return Take<std::uint32_t>();
      case FileType::Long:
      case FileType::ULong:
        return Take<std::int64_t>();
      default:
        return Take<std::uint8_t>();
    }
  }

 private:
  std::string_view rest_;
};

}  // namespace brelmon::web
