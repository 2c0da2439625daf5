// SPDX-License-Identifier: GPL-2.0-or-later
// Records of a dBASE file in large blocks, and what stands plainly in their fields.
#pragma once

#include <cstdint>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brelmon::headless {

struct DbfPlace {
  char type = 'C';
  std::size_t offset = 0, width = 0;  // bytes in the record, whose first byte is the deletion mark
};

struct DbfLayout {
  std::string path;
  std::int64_t records = 0;  // deleted ones included
  std::size_t headerLength = 0, recordLength = 0;
  std::vector<DbfPlace> fields;
};

/// Nothing unless the header, the fields and the length of the file agree.
std::optional<DbfLayout> ReadDbfLayout(const std::string& path);

/// What a field holds. `Odd` is anything whose reading calls for more than blanks, digits and
/// texts: a number in stars, a date that is none, a logical value, a memo.
struct DbfCell {
  enum class Kind { Null, Whole, Real, Date, Text, Odd };
  Kind is = Kind::Odd;
  std::int64_t whole = 0;
  double real = 0;
  int year = 0, month = 0, day = 0;
  std::string_view text = {};  // as it stands in the file, without blanks at both ends
};
DbfCell WholeCell(std::string_view bytes);
DbfCell RealCell(std::string_view bytes);
DbfCell DateCell(std::string_view bytes);
DbfCell TextCell(std::string_view bytes);

/// Records that aren't marked as deleted, in their order.
class DbfScan {
 public:
  explicit DbfScan(const DbfLayout& layout);
  /// False at the end. Fails with 57 where the file can't be read on.
  bool Next();
  std::int64_t Record() const { return next_ - 1; }  // from 0
  std::string_view Bytes() const {
    return {block_.data() + (at_ - layout_.recordLength), layout_.recordLength};
  }

 private:
  void ReadBlock();

  const DbfLayout& layout_;
  std::ifstream file_;
  std::vector<char> block_;
  std::size_t at_ = 0, end_ = 0;  // in the block
  std::int64_t next_ = 0;
};

}  // namespace brelmon::headless
