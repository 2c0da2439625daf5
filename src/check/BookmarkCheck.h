// SPDX-License-Identifier: GPL-2.0-or-later
// The rules of a bookmark's four numbers.
#pragma once

#include "check/FileReport.h"
#include "quickload/QuickLoadFile.h"

namespace brelmon {

class BookmarkCheck {
 public:
  explicit BookmarkCheck(FileReport& report) : report_(report) {}
  /// Of numbers that another computer's decimal symbol would spoil it tells once.
  void Check(const QuickLoadRecord& record);

 private:
  void Number(std::int32_t line, const Text& text);
  void Decimals(std::int32_t line, const Text& text);
  void Pair(const QuickLoadRecord& record, std::size_t low);

  FileReport& report_;
  bool toldOfDecimals_ = false;
};

/// Line of a record's field in the tools' count; the first field is 0.
inline std::int32_t LineOf(const QuickLoadRecord& record, std::size_t field) {
  return record.Line + 1 + static_cast<std::int32_t>(field);
}

}  // namespace brelmon
