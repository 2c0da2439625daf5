// SPDX-License-Identifier: GPL-2.0-or-later
// Finding the rows' groups, and adding the rows to them, a column at a time.
#include "hosts/columns/dissolvegroups.h"

#include <cmath>
#include <numeric>

#include "hosts/columns/values.h"
#include "hosts/common/hostfailure.h"

namespace brelmon::columns {
namespace {

std::size_t PlaceOf(const std::vector<std::size_t>& fields, std::size_t field) {
  return static_cast<std::size_t>(std::find(fields.begin(), fields.end(), field) - fields.begin());
}

bool IsText(const Column& column) { return !column.Texts.empty(); }

double NumberAt(const Column& column, std::size_t row) {
  if (!column.Reals.empty()) return column.Reals[row] + 0.0;  // no negative zero
  if (!column.Wholes.empty()) return static_cast<double>(column.Wholes[row]);
  if (!column.Moments.empty()) return DateOf(column.Moments[row]).Serial;
  host::Fail(failure::kTypeMismatch);
}

/// Groups in the order of their keys.
template <class Keys>
void AppendInOrder(const Keys& keys, const std::vector<std::uint32_t>& groups,
                   std::vector<std::size_t>& order) {
  std::vector<std::uint32_t> sorted(groups.size());
  std::iota(sorted.begin(), sorted.end(), 0u);
  std::sort(sorted.begin(), sorted.end(),
            [&](std::uint32_t one, std::uint32_t other) { return keys[one] < keys[other]; });
  for (const std::uint32_t key : sorted) order.push_back(groups[key]);
}

}  // namespace

void NumberTally::Add(double value) {
  Minimum = Count == 0 ? value : std::min(Minimum, value);
  Maximum = Count == 0 ? value : std::max(Maximum, value);
  ++Count;
  const double sum = sum_ + value;
  lost_ += std::abs(sum_) >= std::abs(value) ? (sum_ - sum) + value : (value - sum) + sum_;
  sum_ = sum;
  const double step = value - Mean;
  Mean += step / static_cast<double>(Count);
  Squares += step * (value - Mean);
}

void NumberTally::Merge(const NumberTally& other) {
  if (other.Count == 0) return;
  if (Count == 0) {
    *this = other;
    return;
  }
  const auto mine = static_cast<double>(Count), its = static_cast<double>(other.Count);
  const double step = other.Mean - Mean;
  Squares += other.Squares + step * step * mine * its / (mine + its);
  Mean += step * its / (mine + its);
  Minimum = std::min(Minimum, other.Minimum);
  Maximum = std::max(Maximum, other.Maximum);
  Count += other.Count;
  const double sum = sum_ + other.sum_;
  lost_ += other.lost_ + (std::abs(sum_) >= std::abs(other.sum_) ? (sum_ - sum) + other.sum_
                                                                 : (other.sum_ - sum) + sum_);
  sum_ = sum;
}

void TextTally::Add(std::string_view value) {
  if (!Any || value < Minimum) Minimum = value;
  if (!Any || value > Maximum) Maximum = value;
  Any = true;
}

DissolveGroups::DissolveGroups(const std::vector<Field>& source, std::size_t keyField,
                               const std::vector<std::size_t>& fields)
    : keyField_(keyField) {
  for (const std::size_t field : fields) {
    (source[field].Type == FieldType::String ? textFields_ : numberFields_).push_back(field);
  }
}

void DissolveGroups::Add(const Batch& batch) {
  if (batch.Live.empty()) return;
  FindGroups(batch);
  for (const std::uint32_t group : groups_) ++records_[group];
  for (std::size_t i = 0; i < numberFields_.size(); ++i) {
    const Column& column = batch.Columns[numberFields_[i]];
    Tally(
        batch, column,
        [&](std::size_t group) -> auto& {
          return numberTallies_[group * numberFields_.size() + i];
        },
        NumberAt);
  }
  for (std::size_t i = 0; i < textFields_.size(); ++i) {
    const Column& column = batch.Columns[textFields_[i]];
    Tally(
        batch, column,
        [&](std::size_t group) -> auto& { return textTallies_[group * textFields_.size() + i]; },
        [](const Column& texts, std::size_t row) { return texts.Texts[row]; });
  }
}

void DissolveGroups::Merge(const Batch& batch, const GroupTallies& gathered) {
  FindGroups(batch);
  const std::size_t numbers = numberFields_.size(), texts = textFields_.size();
  for (std::size_t i = 0; i < groups_.size(); ++i) {
    const std::size_t group = groups_[i], from = batch.Live[i];
    records_[group] += gathered.Records[from];
    for (std::size_t field = 0; field < numbers; ++field) {
      numberTallies_[group * numbers + field].Merge(gathered.Numbers[from * numbers + field]);
    }
    for (std::size_t field = 0; field < texts; ++field) {
      const TextTally& other = gathered.Texts[from * texts + field];
      if (!other.Any) continue;
      textTallies_[group * texts + field].Add(other.Minimum);
      textTallies_[group * texts + field].Add(other.Maximum);
    }
  }
}

template <class Tallies, class ValueAt>
void DissolveGroups::Tally(const Batch& batch, const Column& column, Tallies tallies,
                           ValueAt valueAt) {
  for (std::size_t i = 0; i < batch.Live.size(); ++i) {
    const std::size_t row = batch.Live[i];
    if (column.IsNull(row)) continue;
    const auto value = valueAt(column, row);
    if constexpr (std::is_same_v<decltype(value), const double>) {
      if (std::isnan(value)) continue;
    }
    tallies(groups_[i]).Add(value);
  }
}

void DissolveGroups::FindGroups(const Batch& batch) {
  const Column& keys = batch.Columns[keyField_];
  groups_.clear();
  for (const std::uint32_t row : batch.Live) {
    std::size_t group = 0;
    const bool text = IsText(keys);
    const double number = text || keys.IsNull(row) ? 0 : NumberAt(keys, row);
    if (keys.IsNull(row) || std::isnan(number)) {
      if (!ofNull_) ofNull_ = NewGroup();
      group = *ofNull_;
    } else if (text) {
      group = GroupOf(groupsOfTexts_, texts_.Of(keys.Texts[row]));
    } else {
      group = GroupOf(groupsOfNumbers_, numbers_.Of(number));
    }
    groups_.push_back(static_cast<std::uint32_t>(group));
  }
}

std::size_t DissolveGroups::GroupOf(std::vector<std::uint32_t>& groups, std::size_t key) {
  if (key == groups.size()) groups.push_back(static_cast<std::uint32_t>(NewGroup()));
  return groups[key];
}

std::size_t DissolveGroups::NewGroup() {
  records_.push_back(0);
  numberTallies_.resize(numberTallies_.size() + numberFields_.size());
  textTallies_.resize(textTallies_.size() + textFields_.size());
  return records_.size() - 1;
}

std::vector<std::size_t> DissolveGroups::InOrder() const {
  std::vector<std::size_t> order;
  order.reserve(records_.size());
  if (ofNull_) order.push_back(*ofNull_);
  AppendInOrder(numbers_.Values(), groupsOfNumbers_, order);
  AppendInOrder(texts_.Values(), groupsOfTexts_, order);
  return order;
}

const NumberTally& DissolveGroups::Numbers(std::size_t group, std::size_t field) const {
  return numberTallies_[group * numberFields_.size() + PlaceOf(numberFields_, field)];
}

const TextTally& DissolveGroups::Texts(std::size_t group, std::size_t field) const {
  return textTallies_[group * textFields_.size() + PlaceOf(textFields_, field)];
}

}  // namespace brelmon::columns
