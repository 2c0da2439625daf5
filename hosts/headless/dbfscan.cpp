// SPDX-License-Identifier: GPL-2.0-or-later
// The header's 32 bytes, 32 more for each field, and records of one length.
#include "hosts/headless/dbfscan.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>

#include "hosts/common/hostfailure.h"

namespace brelmon::headless {
namespace {

constexpr std::size_t kHead = 32, kBlock = std::size_t{1} << 18;
constexpr char kEndOfFields = '\r';

std::size_t Little(const char* bytes, int count) {
  std::size_t number = 0;
  for (int i = count - 1; i >= 0; --i) number = number * 256 + static_cast<unsigned char>(bytes[i]);
  return number;
}

/// What C would take for the text, without blanks at both ends.
std::string_view Bare(std::string_view bytes) {
  bytes = bytes.substr(0, bytes.find('\0'));
  const std::size_t first = bytes.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return bytes.substr(first, bytes.find_last_not_of(' ') - first + 1);
}

template <class Number>
bool Parse(std::string_view text, Number& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size();
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

std::optional<DbfLayout> ReadDbfLayout(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::array<char, kHead> head{};
  if (!file.read(head.data(), kHead)) return {};
  DbfLayout layout{path,
                   static_cast<std::int64_t>(Little(&head[4], 4)),
                   Little(&head[8], 2),
                   Little(&head[10], 2),
                   {}};
  std::size_t offset = 1;
  while (file.read(head.data(), 1) && head[0] != kEndOfFields) {
    if (!file.read(&head[1], kHead - 1)) return {};
    layout.fields.push_back({head[11], offset, Little(&head[16], 1)});
    offset += layout.fields.back().width;
  }
  const std::size_t described = kHead * (layout.fields.size() + 1);
  std::error_code error;
  const auto size = std::filesystem::file_size(path, error);
  const bool agrees = file && !error && offset == layout.recordLength &&
                      layout.headerLength > described &&
                      size >= layout.headerLength +
                                  static_cast<std::uintmax_t>(layout.records) * layout.recordLength;
  if (!agrees) return {};
  return layout;
}

DbfCell WholeCell(std::string_view bytes) {
  const std::string_view text = Bare(bytes);
  DbfCell cell;
  if (text.empty()) {
    cell.is = DbfCell::Kind::Null;
  } else if (Parse(text, cell.whole)) {
    cell.is = DbfCell::Kind::Whole;
  }
  return cell;
}

DbfCell RealCell(std::string_view bytes) {
  const std::string_view text = Bare(bytes);
  DbfCell cell;
  if (text.empty()) {
    cell.is = DbfCell::Kind::Null;
  } else if (text.find_first_not_of("0123456789.+-eE") == std::string_view::npos &&
             Parse(text, cell.real)) {
    cell.is = DbfCell::Kind::Real;
  }
  return cell;
}

DbfCell DateCell(std::string_view bytes) {
  DbfCell cell;
  const std::string_view text = Bare(bytes);
  if (text.empty()) cell.is = DbfCell::Kind::Null;
  if (text.size() != 8 || !std::all_of(text.begin(), text.end(), IsDigit)) return cell;
  Parse(text.substr(0, 4), cell.year);
  Parse(text.substr(4, 2), cell.month);
  Parse(text.substr(6, 2), cell.day);
  const bool usual =
      cell.year > 0 && cell.month >= 1 && cell.month <= 12 && cell.day >= 1 && cell.day <= 31;
  if (usual) cell.is = DbfCell::Kind::Date;
  return cell;
}

DbfCell TextCell(std::string_view bytes) {
  DbfCell cell;
  cell.text = Bare(bytes);
  cell.is = cell.text.empty() ? DbfCell::Kind::Null : DbfCell::Kind::Text;
  return cell;
}

DbfScan::DbfScan(const DbfLayout& layout) : layout_(layout), file_(layout.path, std::ios::binary) {
  file_.seekg(static_cast<std::streamoff>(layout.headerLength));
  const std::size_t records = std::max<std::size_t>(kBlock / layout.recordLength, 1);
  block_.resize(records * layout.recordLength);
}

bool DbfScan::Next() {
  while (next_ < layout_.records) {
    if (at_ == end_) ReadBlock();
    const bool deleted = block_[at_] == '*';
    at_ += layout_.recordLength;
    ++next_;
    if (!deleted) return true;
  }
  return false;
}

void DbfScan::ReadBlock() {
  const auto left = static_cast<std::size_t>(layout_.records - next_) * layout_.recordLength;
  at_ = 0;
  end_ = std::min(block_.size(), left);
  if (!file_.read(block_.data(), static_cast<std::streamsize>(end_))) {
    host::Fail(failure::kDeviceIo, "The file can't be read: " + layout_.path);
  }
}

}  // namespace brelmon::headless
