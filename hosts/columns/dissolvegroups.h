// SPDX-License-Identifier: GPL-2.0-or-later
// Groups of rows that share a key, and what has been gathered of each.
#pragma once

#include <cstdint>
#include <optional>

#include "hosts/columns/rows.h"
#include "hosts/columns/valueindex.h"

namespace brelmon::columns {

/// What one field of one group comes to. Sums are compensated, so that their error doesn't grow
/// with the rows (Neumaier 1974); the squares of deviations follow Welford (1962).
struct NumberTally {
  std::int64_t Count = 0;
  double Minimum = 0, Maximum = 0, Mean = 0, Squares = 0;

  void Add(double value);
  /// The values that `other` has seen (Chan, Golub and LeVeque 1979).
  void Merge(const NumberTally& other);
  /// A sum in two parts, the larger one exact.
  void SetSum(double sum, double rest) {
    sum_ = sum;
    lost_ = rest;
  }
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

/// What a source has gathered of some groups: group by group, and of each the tallied fields in
/// their order, numbers and texts apart.
struct GroupTallies {
  std::vector<std::int64_t> Records;
  std::vector<NumberTally> Numbers;
  std::vector<TextTally> Texts;
};

/// Memory grows with the groups, not with the rows.
class DissolveGroups {
 public:
  /// `fields` are the fields that are tallied, by index in the source's.
  DissolveGroups(const std::vector<Field>& source, std::size_t keyField,
                 const std::vector<std::size_t>& fields);

  /// The columns of the key and of all tallied fields are there.
  void Add(const Batch& batch);
  /// Each live row of the batch stands for a group, of which the key's column tells the key. Keys
  /// may repeat.
  void Merge(const Batch& batch, const GroupTallies& gathered);

  /// Groups by number, keys ascending, the null key first.
  std::vector<std::size_t> InOrder() const;
  std::int64_t Records(std::size_t group) const { return records_[group]; }
  const NumberTally& Numbers(std::size_t group, std::size_t field) const;
  const TextTally& Texts(std::size_t group, std::size_t field) const;

 private:
  void FindGroups(const Batch& batch);
  std::size_t GroupOf(std::vector<std::uint32_t>& groups, std::size_t key);
  std::size_t NewGroup();
  template <class Tallies, class ValueAt>
  void Tally(const Batch& batch, const Column& column, Tallies tallies, ValueAt valueAt);

  std::size_t keyField_;
  std::vector<std::size_t> numberFields_, textFields_;
  TextIndex texts_;
  NumberIndex numbers_;
  std::vector<std::uint32_t> groupsOfTexts_, groupsOfNumbers_;  // by number in their index
  std::optional<std::size_t> ofNull_;
  std::vector<std::int64_t> records_;
  std::vector<NumberTally> numberTallies_;  // group by group
  std::vector<TextTally> textTallies_;
  std::vector<std::uint32_t> groups_;  // of the live rows of one batch
};

}  // namespace brelmon::columns
