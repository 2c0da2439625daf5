// SPDX-License-Identifier: GPL-2.0-or-later
// Counts and lengths out of the headers, held against the files' own lengths.
#include "hosts/data/shapefileparts.h"

#include <cpl_conv.h>
#include <cpl_string.h>
#include <cpl_vsi.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <optional>
#include <vector>

#include "hosts/common/paths.h"

namespace brelmon::data {
namespace {

constexpr std::size_t kDbfHead = 32, kShapeHead = 100, kIndexEntry = 8;

/// The first bytes of a file, and how long it is.
struct Part {
  std::string name, problem;
  std::uint64_t length = 0;
  std::vector<unsigned char> head, tail;

  std::uint64_t Little(std::size_t at, int bytes) const {
    std::uint64_t number = 0;
    for (int i = bytes - 1; i >= 0; --i)
      number = number * 256 + head[at + static_cast<std::size_t>(i)];
    return number;
  }
  static std::uint64_t Big(const std::vector<unsigned char>& from, std::size_t at) {
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < 4; ++i) number = number * 256 + from[at + i];
    return number;
  }
};

/// The path with another ending, in whichever case it is there.
std::string WithEnding(const std::string& path, const char* ending) {
  const std::string other = CPLResetExtension(path.c_str(), ending);
  if (path.rfind("/vsi", 0) != 0) return host::TrueCase(other);
  VSIStatBufL status;
  if (VSIStatL(other.c_str(), &status) == 0) return other;
  return CPLResetExtension(path.c_str(), CPLString(ending).toupper().c_str());
}

/// Problems stand in it; nothing where there is no such file.
std::optional<Part> PartOf(const std::string& path, const char* ending, std::size_t head) {
  const std::string file = WithEnding(path, ending);
  VSIStatBufL status;
  if (VSIStatL(file.c_str(), &status) != 0) return {};
  Part part{std::string("the .") + ending + " file", {}, 0, {}, {}};
  part.length = static_cast<std::uint64_t>(status.st_size);
  errno = 0;
  VSILFILE* opened = VSIFOpenL(file.c_str(), "rb");
  if (opened == nullptr) {
    part.problem =
        part.name + " can't be read" + (errno ? std::string(": ") + std::strerror(errno) : "");
    return part;
  }
  part.head.resize(head);
  part.head.resize(VSIFReadL(part.head.data(), 1, head, opened));
  if (part.length >= kIndexEntry) {
    part.tail.resize(kIndexEntry);
    VSIFSeekL(opened, part.length - kIndexEntry, SEEK_SET);
    part.tail.resize(VSIFReadL(part.tail.data(), 1, kIndexEntry, opened));
  }
  VSIFCloseL(opened);
  if (part.length == 0) {
    part.problem = part.name + " is empty";
  } else if (part.head.size() < head) {
    part.problem = part.name + " is cut short: its header is not whole";
  }
  return part;
}

std::string CutShort(const Part& part, std::uint64_t due) {
  return part.name + " is cut short: it should have " + std::to_string(due) + " bytes and has " +
         std::to_string(part.length);
}

/// The header, the records that it counts and the length of the file.
std::string DamageOfTable(const Part& table) {
  if (!table.problem.empty()) return table.problem;
  const std::uint64_t records = table.Little(4, 4), header = table.Little(8, 2),
                      record = table.Little(10, 2);
  if (header <= kDbfHead || record == 0) return table.name + " has no valid header";
  const std::uint64_t due = header + records * record;
  return table.length < due ? CutShort(table, due) : "";
}

/// The shapes up to the last one that the index tells of.
std::string DamageOfShapes(const Part& shapes, const Part& index) {
  for (const Part* part : {&shapes, &index}) {
    if (!part->problem.empty()) return part->problem;
  }
  const std::uint64_t told = Part::Big(index.head, 24) * 2;
  if (index.length < told) return CutShort(index, told);
  if (told <= kShapeHead || told != index.length || index.tail.size() < kIndexEntry) return {};
  // Offset and length in words of two bytes, and eight bytes before each shape.
  const std::uint64_t due = 2 * (Part::Big(index.tail, 0) + Part::Big(index.tail, 4)) + kIndexEntry;
  return shapes.length < due ? CutShort(shapes, due) : "";
}

}  // namespace

std::string DamageOfShapefile(const std::string& path) {
  const char* extension = CPLGetExtension(path.c_str());
  const bool shapes = EQUAL(extension, "shp");
  if (!shapes && !EQUAL(extension, "dbf")) return {};
  const auto table = PartOf(path, "dbf", kDbfHead);
  if (!table) return shapes ? "the .dbf file is missing" : "";
  std::string damage = DamageOfTable(*table);
  const auto shape = PartOf(path, "shp", kShapeHead), index = PartOf(path, "shx", kShapeHead);
  // A table by its own name may stand beside shapes, and is told of like them.
  if (!damage.empty() || !shape || !index) return damage;
  damage = DamageOfShapes(*shape, *index);
  if (!damage.empty()) return damage;
  const std::uint64_t rows = table->Little(4, 4);
  const std::uint64_t told = (Part::Big(index->head, 24) * 2 - kShapeHead) / kIndexEntry;
  if (rows == told) return {};
  return "its parts disagree: the .shx file tells of " + std::to_string(told) +
         " shapes, the .dbf file of " + std::to_string(rows) + " records";
}

}  // namespace brelmon::data
