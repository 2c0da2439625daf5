// SPDX-License-Identifier: GPL-2.0-or-later
// The list box, with a single selection or an extended one.
#include "toolkit/listbox.h"

#include <algorithm>

#include "toolkit/dump.h"

namespace brelmon {

void ListBox::SetMultiSelect(Select select) {
  Touch();
  if (select == select_) return;
  select_ = select;
  selected_.assign(select == Select::Extended ? rows_.size() : 0, false);
  index_ = anchor_ = -1;
  Changed(Aspect::Items);
}

void ListBox::AddItem(brelmon::Text text, std::int32_t data) {
  Touch();
  rows_.push_back(std::move(text));
  data_.push_back(data);
  if (select_ == Select::Extended) selected_.push_back(false);
  Changed(Aspect::Items);
}

void ListBox::Clear() {
  Touch();
  rows_.clear();
  data_.clear();
  selected_.clear();
  index_ = anchor_ = -1;
  Changed(Aspect::Items);
}

void ListBox::CheckRow(std::int32_t row, std::int32_t number) const {
  if (row < 0 || static_cast<std::size_t>(row) >= rows_.size()) Raise(number);
}

brelmon::Text ListBox::List(std::int32_t row) {
  Touch();
  CheckRow(row, failure::kInvalidPropertyValue);
  return rows_[static_cast<std::size_t>(row)];
}

void ListBox::SetListIndex(std::int32_t row) {
  Touch();
  if (row != -1) CheckRow(row, failure::kInvalidPropertyValue);
  if (row == index_) return;
  index_ = anchor_ = row;
  Changed(Aspect::Selection);
  if (row != -1) Fire(Click);
}

std::int32_t ListBox::ItemData(std::int32_t row) {
  Touch();
  CheckRow(row, failure::kInvalidPropertyValue);
  return data_[static_cast<std::size_t>(row)];
}

bool ListBox::Selected(std::int32_t row) {
  Touch();
  CheckRow(row, failure::kSubscript);
  return select_ == Select::Single ? row == index_ : selected_[static_cast<std::size_t>(row)];
}

brelmon::Text ListBox::Text() {
  Touch();
  return index_ < 0 ? brelmon::Text() : rows_[static_cast<std::size_t>(index_)];
}

void ListBox::SetText(const brelmon::Text& text) {
  Touch();
  const auto hit = std::find(rows_.begin(), rows_.end(), text);
  SetListIndex(hit == rows_.end() ? -1 : static_cast<std::int32_t>(hit - rows_.begin()));
}

void ListBox::SelectByUser(std::int32_t row, bool control, bool shift) {
  if (select_ == Select::Extended) {
    const auto at = static_cast<std::size_t>(row);
    if (!control) selected_.assign(rows_.size(), false);
    if (shift) {
      const auto from = static_cast<std::size_t>(anchor_ < 0 ? row : anchor_);
      const auto first = selected_.begin() + static_cast<std::ptrdiff_t>(std::min(from, at));
      const auto last = selected_.begin() + static_cast<std::ptrdiff_t>(std::max(from, at));
      std::fill(first, last + 1, true);
    } else {
      selected_[at] = control ? !selected_[at] : true;
    }
  }
  if (!shift || anchor_ < 0) anchor_ = row;
  index_ = row;
}

void ListBox::UserClick(std::int32_t row, bool control, bool shift) {
  Touch();
  if (row != -1) CheckRow(row, failure::kSubscript);
  if (!Usable()) return;
  TakeFocus();
  if (row == -1) return;
  SelectByUser(row, control, shift);
  Changed(Aspect::Selection);
  Fire(Click);
}

void ListBox::UserDoubleClick(std::int32_t row) {
  Owner().RunBoth([&] { UserClick(row); },
                  [&] {
                    if (Usable()) Fire(DblClick);
                  });
}

void ListBox::ResetDesign() {
  Control::ResetDesign();
  rows_ = {};
  data_ = {};
  selected_ = {};
  index_ = anchor_ = -1;
  select_ = Select::Single;
}

brelmon::Text ListBox::DumpOwn() {
  brelmon::Text own = select_ == Select::Extended ? u" extended" : u"";
  own += u" rows=" + dump::Number(static_cast<double>(rows_.size()));
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    own += row == 0 ? u": " : u", ";
    if (static_cast<std::int32_t>(row) == index_) own += u">";
    if (select_ == Select::Extended && selected_[row]) own += u"*";
    own += dump::Quoted(rows_[row]);
  }
  return own;
}

}  // namespace brelmon
