// SPDX-License-Identifier: GPL-2.0-or-later
// The text box: text, caret and selection.
#include "toolkit/textbox.h"

#include <algorithm>

#include "toolkit/dump.h"

namespace brelmon {

namespace {

/// Line ends as the box holds them: CR LF for each, or none.
Text WithLineEnds(TextView text, bool multiLine) {
  Text result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != u'\r' && text[i] != u'\n') {
      result += text[i];
      continue;
    }
    if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') ++i;
    if (multiLine) result += kCrLf;
  }
  return result;
}

std::int32_t Length(const Text& text) { return static_cast<std::int32_t>(text.size()); }

void CheckNotNegative(std::int32_t number) {
  if (number < 0) Raise(failure::kInvalidPropertyValue);
}

}  // namespace

void TextBox::SetMultiLine(bool multiLine) { Assign(multiLine_, multiLine, Aspect::State); }

void TextBox::SetLocked(bool locked) { Assign(locked_, locked, Aspect::State); }

void TextBox::Replace(const brelmon::Text& text, std::int32_t start, std::int32_t length) {
  const bool changed = text != text_;
  const bool moved = start != start_ || length != length_;
  text_ = text;
  start_ = start;
  length_ = length;
  if (changed) Changed(Aspect::Value);
  if (moved) Changed(Aspect::Selection);
  if (changed) Fire(Change);
}

void TextBox::SetText(const brelmon::Text& text) {
  Touch();
  if (text != text_) Replace(text, 0, 0);
}

void TextBox::SetSelStart(std::int32_t start) {
  CheckNotNegative(start);
  Touch();
  Replace(text_, std::min(start, Length(text_)), 0);
}

void TextBox::SetSelLength(std::int32_t length) {
  CheckNotNegative(length);
  Touch();
  Replace(text_, start_, std::min(length, Length(text_) - start_));
}

brelmon::Text TextBox::SelText() {
  Touch();
  return text_.substr(static_cast<std::size_t>(start_), static_cast<std::size_t>(length_));
}

void TextBox::SetSelText(const brelmon::Text& text) {
  Touch();
  brelmon::Text whole = text_;
  whole.replace(static_cast<std::size_t>(start_), static_cast<std::size_t>(length_), text);
  Replace(whole, start_ + Length(text), 0);
}

void TextBox::UserEdit(const brelmon::Text& text, std::int32_t selStart, std::int32_t selLength) {
  CheckNotNegative(selStart);
  CheckNotNegative(selLength);
  if (!Usable()) return;
  TakeFocus();
  const bool edited = text != text_;
  if (edited && locked_) return;
  const std::int32_t start = std::min(selStart, Length(text));
  const std::int32_t end = start + std::min(selLength, Length(text) - start);
  if (!edited) return Replace(text_, start, end - start);
  const auto kept = [&](std::int32_t to) {
    return Length(WithLineEnds(TextView(text).substr(0, static_cast<std::size_t>(to)), multiLine_));
  };
  const brelmon::Text whole = WithLineEnds(text, multiLine_);
  const std::int32_t from = std::min(kept(start), Length(whole));
  Replace(whole, from, std::min(kept(end), Length(whole)) - from);
}

void TextBox::UserType(const brelmon::Text& text) {
  Touch();
  brelmon::Text whole = text_;
  whole.replace(static_cast<std::size_t>(start_), static_cast<std::size_t>(length_), text);
  UserEdit(whole, start_ + Length(text), 0);
}

void TextBox::ResetDesign() {
  Control::ResetDesign();
  text_.clear();
  start_ = length_ = 0;
  multiLine_ = locked_ = false;
}

brelmon::Text TextBox::DumpOwn() {
  brelmon::Text own;
  if (multiLine_) own += u" multi-line";
  if (locked_) own += u" locked";
  own += u" text=" + dump::Quoted(text_) + u" caret=" + dump::Number(start_);
  if (length_ > 0) own += u" selected=" + dump::Number(length_);
  return own;
}

}  // namespace brelmon
