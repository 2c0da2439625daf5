// SPDX-License-Identifier: GPL-2.0-or-later
// A form's whole state as text.
#include "toolkit/dump.h"

#include <charconv>
#include <cmath>

#include "toolkit/form.h"

namespace brelmon {

namespace dump {

namespace {

Text Widened(const char* begin, const char* end) { return Text(begin, end); }

Text Hex(std::uint32_t number, std::size_t digits) {
  char buffer[8];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, number, 16).ptr;
  Text text = Widened(buffer, end);
  return text.size() < digits ? Text(digits - text.size(), u'0') + text : text;
}

}  // namespace

Text Quoted(TextView text) {
  Text quoted = u"\"";
  for (const char16_t unit : text) {
    if (unit == u'\r') {
      quoted += u"\\r";
    } else if (unit == u'\n') {
      quoted += u"\\n";
    } else if (unit < u' ') {
      quoted += u"\\x" + Hex(unit, 2);
    } else {
      if (unit == u'"' || unit == u'\\') quoted += u'\\';
      quoted += unit;
    }
  }
  return quoted + u'"';
}

Text Number(double number) {
  char buffer[64];
  const double rounded = std::round(number * 100) / 100 + 0.0;  // no negative zero
  return Widened(buffer, std::to_chars(buffer, buffer + sizeof buffer, rounded).ptr);
}

Text PictureText(const Picture& picture) {
  return picture ? u" picture=" + Quoted(picture->Description) : Text();
}

Text FontText(const Font& font) {
  Text text;
  if (font.Bold) text += u" bold";
  if (font.Underline) text += u" underline";
  if (font.Size != 0) text += u" " + Number(font.Size);
  if (!font.Name.empty()) text += u" " + font.Name;
  return text.empty() ? text : text.substr(1);
}

Text ColourText(Colour colour) { return u"0x" + Hex(static_cast<std::uint32_t>(colour), 6); }

}  // namespace dump

namespace {

TextView KindName(ControlKind kind) {
  switch (kind) {
    case ControlKind::Label:
      return u"Label";
    case ControlKind::TextBox:
      return u"TextBox";
    case ControlKind::ListBox:
      return u"ListBox";
    case ControlKind::ComboBox:
      return u"ComboBox";
    case ControlKind::CommandButton:
      return u"CommandButton";
    case ControlKind::OptionButton:
      return u"OptionButton";
    case ControlKind::CheckBox:
      return u"CheckBox";
    case ControlKind::Frame:
      return u"Frame";
    case ControlKind::PictureBox:
      return u"PictureBox";
    case ControlKind::TreeView:
      return u"TreeView";
    case ControlKind::RichTextBox:
      return u"RichTextBox";
  }
  return u"Control";
}

Text Flag(bool set, TextView name) { return set ? u" " + Text(name) : Text(); }

}  // namespace

Text Control::Dump() {
  Touch();
  Text line = Text(KindName(kind_)) + u" " + name_ + u" " + dump::Number(at_.left) + u"," +
              dump::Number(at_.top) + u" " + dump::Number(at_.width) + u"x" +
              dump::Number(at_.height);
  if (!at_.caption.empty()) line += u" " + dump::Quoted(at_.caption);
  line += Flag(!at_.enabled, u"disabled") + Flag(!at_.visible, u"hidden") +
          Flag(owner_.Focused() == this, u"focus") + Flag(!at_.tabStop, u"no-tab");
  if (!at_.tip.empty()) line += u" tip=" + dump::Quoted(at_.tip);
  if (at_.label) line += u" for=" + dump::Quoted(at_.label->Name());
  if (at_.foreColor != colour::kDefault) line += u" fore=" + dump::ColourText(at_.foreColor);
  if (at_.backColor != colour::kDefault) line += u" back=" + dump::ColourText(at_.backColor);
  if (at_.font != brelmon::Font{}) line += u" font=" + dump::Quoted(dump::FontText(at_.font));
  if (at_.pointer != Pointer::Default) {
    line += u" pointer=" + dump::Number(static_cast<int>(at_.pointer));
  }
  return line + DumpOwn();
}

void Form::DumpControls(Control* container, const Text& indent, Text& dump) {
  for (Control* control : controls_) {
    if (control->at_.container != container) continue;
    dump += indent + control->Dump() + u"\n";
    if (control->Kind() == ControlKind::Frame) DumpControls(control, indent + u"  ", dump);
  }
}

Text Form::Dump() {
  EnsureLoaded();
  Text dump = u"Form " + name_ + u" " + dump::Quoted(caption_) + u" " + dump::Number(width_) +
              u"x" + dump::Number(height_) + Flag(sizable_, u"sizable") +
              Flag(visible_, u"visible");
  if (backColor_ != colour::kDefault) dump += u" back=" + dump::ColourText(backColor_);
  dump += u"\n";
  DumpControls(nullptr, u"  ", dump);
  return dump;
}

}  // namespace brelmon
