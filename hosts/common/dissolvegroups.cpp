// SPDX-License-Identifier: GPL-2.0-or-later
// Finding a row's group, and adding the row to it.
#include "hosts/common/dissolvegroups.h"

#include <algorithm>
#include <cmath>

#include "hosts/common/hostfailure.h"

namespace brelmon::host {
namespace {

std::size_t PlaceOf(const std::vector<std::size_t>& fields, std::size_t field) {
  return static_cast<std::size_t>(std::find(fields.begin(), fields.end(), field) - fields.begin());
}

template <class Map>
void AppendInOrder(const Map& groups, std::vector<std::size_t>& order) {
  std::vector<typename Map::const_iterator> sorted;
  sorted.reserve(groups.size());
  for (auto each = groups.begin(); each != groups.end(); ++each) sorted.push_back(each);
  std::sort(sorted.begin(), sorted.end(),
            [](const auto& left, const auto& right) { return left->first < right->first; });
  for (const auto& each : sorted) order.push_back(each->second);
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

void TextTally::Add(std::string_view value) {
  if (!Any || value < Minimum) Minimum = value;
  if (!Any || value > Maximum) Maximum = value;
  Any = true;
}

DissolveGroups::DissolveGroups(const std::vector<DissolveField>& source, std::size_t keyField,
                               std::vector<std::size_t> fields)
    : keyField_(keyField) {
  for (const std::size_t field : fields) {
    (source[field].Type == FieldType::String ? textFields_ : numberFields_).push_back(field);
  }
}

void DissolveGroups::AddRow(IDissolveRows& rows) {
  const std::size_t group = GroupOf(rows.Cell(keyField_));
  ++records_[group];
  for (std::size_t i = 0; i < numberFields_.size(); ++i) {
    const DissolveCell cell = rows.Cell(numberFields_[i]);
    if (cell.Is == DissolveCell::Kind::Null || std::isnan(cell.Number)) continue;
    if (cell.Is == DissolveCell::Kind::Text) Fail(failure::kTypeMismatch);
    numbers_[group * numberFields_.size() + i].Add(cell.Number + 0.0);  // no negative zero
  }
  for (std::size_t i = 0; i < textFields_.size(); ++i) {
    const DissolveCell cell = rows.Cell(textFields_[i]);
    if (cell.Is == DissolveCell::Kind::Null) continue;
    if (cell.Is != DissolveCell::Kind::Text) Fail(failure::kTypeMismatch);
    texts_[group * textFields_.size() + i].Add(cell.Text);
  }
}

std::size_t DissolveGroups::NewGroup() {
  records_.push_back(0);
  numbers_.resize(numbers_.size() + numberFields_.size());
  texts_.resize(texts_.size() + textFields_.size());
  return records_.size() - 1;
}

std::size_t DissolveGroups::GroupOf(const DissolveCell& key) {
  if (key.Is == DissolveCell::Kind::Text) {
    const auto hit = byText_.find(key.Text);
    if (hit != byText_.end()) return hit->second;
    return byText_.emplace(std::string(key.Text), NewGroup()).first->second;
  }
  if (key.Is == DissolveCell::Kind::Null || std::isnan(key.Number)) {
    if (!ofNull_) ofNull_ = NewGroup();
    return *ofNull_;
  }
  const double number = key.Number + 0.0;  // both zeros are one
  const auto hit = byNumber_.find(number);
  if (hit != byNumber_.end()) return hit->second;
  return byNumber_.emplace(number, NewGroup()).first->second;
}

std::vector<std::size_t> DissolveGroups::InOrder() const {
  std::vector<std::size_t> order;
  order.reserve(records_.size());
  if (ofNull_) order.push_back(*ofNull_);
  AppendInOrder(byNumber_, order);
  AppendInOrder(byText_, order);
  return order;
}

const NumberTally& DissolveGroups::Numbers(std::size_t group, std::size_t field) const {
  return numbers_[group * numberFields_.size() + PlaceOf(numberFields_, field)];
}

const TextTally& DissolveGroups::Texts(std::size_t group, std::size_t field) const {
  return texts_[group * textFields_.size() + PlaceOf(textFields_, field)];
}

}  // namespace brelmon::host
