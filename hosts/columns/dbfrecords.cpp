// SPDX-License-Identifier: GPL-2.0-or-later
// The header's counts (bytes 4 to 11, little-endian) and the first byte of each record.
#include "hosts/columns/dbfrecords.h"

#include <array>
#include <fstream>
#include <vector>

namespace brelmon::columns {
namespace {

constexpr std::size_t kBlock = std::size_t{1} << 20;

std::int64_t Little(const unsigned char* bytes, int count) {
  std::int64_t number = 0;
  for (int i = count - 1; i >= 0; --i) number = number * 256 + bytes[i];
  return number;
}

}  // namespace

std::optional<DbfRecords> CountDbfRecords(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::array<unsigned char, 32> head{};
  if (!file.read(reinterpret_cast<char*>(head.data()), head.size())) return {};
  DbfRecords records;
  records.total = Little(&head[4], 4);
  const std::int64_t headLength = Little(&head[8], 2), recordLength = Little(&head[10], 2);
  if (recordLength == 0) return {};
  const std::int64_t end = headLength + records.total * recordLength;
  std::vector<char> block(kBlock);
  std::int64_t mark = headLength;  // offset of the next record's first byte
  std::int64_t from = 0;
  file.seekg(0);
  while (mark < end && (file.read(block.data(), kBlock), file.gcount() > 0)) {
    const std::int64_t got = file.gcount();
    for (; mark < end && mark < from + got; mark += recordLength) {
      if (block[static_cast<std::size_t>(mark - from)] == '*') ++records.deleted;
    }
    from += got;
  }
  return records;
}

}  // namespace brelmon::columns
