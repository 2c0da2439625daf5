// SPDX-License-Identifier: GPL-2.0-or-later
// Room for the values of a column while a reader fills it.
#pragma once

#include <algorithm>

#include "hosts/columns/batch.h"

namespace brelmon::columns {

/// Texts of a batch that don't stand in its source as they are; they stay where they are put until
/// Clear.
class TextRoom {
 public:
  std::string_view Put(std::string_view text) {
    if (text.empty()) return "";  // there may be no room yet
    if (used_ + text.size() > Size()) Grow(text.size());
    char* place = rooms_[room_].get() + used_;
    std::copy(text.begin(), text.end(), place);
    used_ += text.size();
    return {place, text.size()};
  }
  void Clear() { room_ = used_ = 0; }

 private:
  static constexpr std::size_t kRoom = std::size_t{1} << 16;

  std::size_t Size() const { return room_ < sizes_.size() ? sizes_[room_] : 0; }
  void Grow(std::size_t needed) {
    // Rooms of an earlier batch are used again where they are large enough.
    if (!sizes_.empty() && used_ > 0) ++room_;
    while (room_ < sizes_.size() && sizes_[room_] < needed) ++room_;
    if (room_ == sizes_.size()) {
      sizes_.push_back(std::max(kRoom, needed));
      rooms_.push_back(std::make_unique<char[]>(sizes_.back()));
    }
    used_ = 0;
  }

  std::vector<std::unique_ptr<char[]>> rooms_;
  std::vector<std::size_t> sizes_;
  std::size_t room_ = 0, used_ = 0;
};

struct ColumnBuffer {
  std::vector<std::uint8_t> Nulls;
  std::vector<std::int64_t> Wholes;
  std::vector<double> Reals;
  std::vector<Moment> Moments;
  std::vector<std::string_view> Texts;
  bool AnyNull = false;

  /// Room for `rows` values of that storage, none of them null.
  void Start(Storage storage, std::size_t rows) {
    AnyNull = false;
    Nulls.assign(rows, 0);
    if (storage == Storage::Whole) Wholes.resize(rows);
    if (storage == Storage::Real) Reals.resize(rows);
    if (storage == Storage::Moment) Moments.resize(rows);
    if (storage == Storage::Text || storage == Storage::Other) Texts.resize(rows);
  }
  void SetNull(std::size_t row) {
    Nulls[row] = 1;
    AnyNull = true;
  }
  /// Valid until the buffer changes.
  Column View() const {
    Column column{{}, Wholes, Reals, Moments, Texts};
    if (AnyNull) column.Nulls = Nulls;
    return column;
  }
};

}  // namespace brelmon::columns
