// SPDX-License-Identifier: GPL-2.0-or-later
// Groups of rows that share a key, and what has been gathered of each.
#pragma once

#include <cstdint>
#include <optional>
#include <unordered_map>

#include "hosts/common/dissolve.h"

namespace brelmon::host {

/// What one field of one group comes to. Sums are compensated, so that their error doesn't grow
/// with the rows (Neumaier 1974); the squares of deviations follow Welford (1962).
struct NumberTally {
  std::int64_t Count = 0;
  double Minimum = 0, Maximum = 0, Mean = 0, Squares = 0;

  void Add(double value);
  double Sum() const { return sum_ + lost_; }
  double Average() const { return Sum() / static_cast<double>(Count); }
  double Variance() const { return Count < 2 ? 0 : Squares / static_cast<double>(Count - 1); }

 private:
  double sum_ = 0, lost_ = 0;
};

struct TextTally {
  bool Any = false;
  std::string Minimum, Maximum;  // by code point

  void Add(std::string_view value);
};

/// Memory grows with the groups, not with the rows.
class DissolveGroups {
 public:
  /// `fields` are the fields that are tallied, by index in the source's.
  DissolveGroups(const std::vector<DissolveField>& source, std::size_t keyField,
                 std::vector<std::size_t> fields);

  void AddRow(IDissolveRows& rows);

  /// Groups by number, keys ascending, the null key first.
  std::vector<std::size_t> InOrder() const;
  std::int64_t Records(std::size_t group) const { return records_[group]; }
  const NumberTally& Numbers(std::size_t group, std::size_t field) const;
  const TextTally& Texts(std::size_t group, std::size_t field) const;

 private:
  struct TextHash : std::hash<std::string_view> {
    using is_transparent = void;
  };
  std::size_t GroupOf(const DissolveCell& key);
  std::size_t NewGroup();

  std::size_t keyField_;
  std::vector<std::size_t> numberFields_, textFields_;
  std::unordered_map<std::string, std::size_t, TextHash, std::equal_to<>> byText_;
  std::unordered_map<double, std::size_t> byNumber_;
  std::optional<std::size_t> ofNull_;
  std::vector<std::int64_t> records_;
  std::vector<NumberTally> numbers_;  // group by group
  std::vector<TextTally> texts_;
};

}  // namespace brelmon::host
