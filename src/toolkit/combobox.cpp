// SPDX-License-Identifier: GPL-2.0-or-later
// The combo box: rows, and a text that may be none of them.
#include "toolkit/combobox.h"

#include <algorithm>

#include "toolkit/dump.h"

namespace brelmon {

void ComboBox::SetListOnly(bool listOnly) { Assign(listOnly_, listOnly, Aspect::State); }

void ComboBox::AddItem(const brelmon::Text& text, std::int32_t data) {
  Touch();
  rows_.push_back(text);
  data_.push_back(data);
  Changed(Aspect::Items);
}

void ComboBox::Clear() {
  Touch();
  rows_.clear();
  data_.clear();
  index_ = -1;
  text_.clear();
  Changed(Aspect::Items);
}

std::size_t ComboBox::CheckedRow(std::int32_t row) {
  if (row < 0 || row >= ListCount()) Raise(failure::kInvalidPropertyValue);
  return static_cast<std::size_t>(row);
}

brelmon::Text ComboBox::List(std::int32_t row) { return rows_[CheckedRow(row)]; }

std::int32_t ComboBox::ItemData(std::int32_t row) { return data_[CheckedRow(row)]; }

std::int32_t ComboBox::RowOf(const brelmon::Text& text) const {
  const auto hit = std::find(rows_.begin(), rows_.end(), text);
  return hit == rows_.end() ? -1 : static_cast<std::int32_t>(hit - rows_.begin());
}

void ComboBox::Choose(std::int32_t row) {
  index_ = row;
  text_ = row < 0 ? brelmon::Text() : rows_[static_cast<std::size_t>(row)];
  Changed(Aspect::Selection);
  if (row >= 0) Fire(Click);
}

void ComboBox::Enter(const brelmon::Text& text) {
  if (text == text_) return;
  text_ = text;
  index_ = RowOf(text);
  Changed(Aspect::Value);
  Fire(Change);
}

void ComboBox::SetListIndex(std::int32_t row) {
  if (row < -1 || row >= ListCount()) Raise(failure::kInvalidPropertyValue);
  if (row != index_) Choose(row);
}

void ComboBox::SetText(const brelmon::Text& text) {
  Touch();
  if (!listOnly_) return Enter(text);
  const std::int32_t row = RowOf(text);
  if (row < 0 && !text.empty()) Raise(failure::kInvalidPropertyValue);
  SetListIndex(row);
}

void ComboBox::UserChoose(std::int32_t row) {
  if (row < 0 || row >= ListCount()) Raise(failure::kSubscript);
  if (!Usable()) return;
  TakeFocus();
  Choose(row);
}

void ComboBox::UserType(const brelmon::Text& text) {
  if (!Usable()) return;
  TakeFocus();
  if (!listOnly_) Enter(text);
}

void ComboBox::ResetDesign() {
  Control::ResetDesign();
  rows_ = {};
  data_ = {};
  index_ = -1;
  text_.clear();
  listOnly_ = false;
}

brelmon::Text ComboBox::DumpOwn() {
  brelmon::Text own = listOnly_ ? u" list-only" : u"";
  own +=
      u" text=" + dump::Quoted(text_) + u" rows=" + dump::Number(static_cast<double>(rows_.size()));
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    own += row == 0 ? u": " : u", ";
    if (static_cast<std::int32_t>(row) == index_) own += u">";
    own += dump::Quoted(rows_[row]);
  }
  return own;
}

}  // namespace brelmon
