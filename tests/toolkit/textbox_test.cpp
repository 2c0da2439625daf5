// SPDX-License-Identifier: GPL-2.0-or-later
// Caret and selection of a text box.
#include "tests/toolkit/testform.h"

namespace brelmon {
namespace {

/// The text with the selection in brackets, a bar where nothing is selected.
std::string Shown(TextBox& box) {
  Text text = box.Text();
  const auto start = static_cast<std::size_t>(box.SelStart());
  const auto length = static_cast<std::size_t>(box.SelLength());
  if (length == 0) return ToUtf8(text.insert(start, u"|"));
  EXPECT_EQ(box.SelText(), text.substr(start, length));
  return ToUtf8(text.insert(start + length, u"]").insert(start, u"["));
}

// Each row starts from "ab[cd]ef".
TEST(Caret, EndsWhereItBelongs) {
  const struct {
    std::function<void(TextBox&)> deed;
    const char* after;
    bool change;
  } rows[] = {

      {[](TextBox& b) { b.SetText(u"xyz"); }, "|xyz", true},
      {[](TextBox& b) { b.SetText(u"abcdef"); }, "ab[cd]ef", false},
      {[](TextBox& b) { b.SetSelStart(99); }, "abcdef|", false},
      {[](TextBox& b) { b.SetSelLength(99); }, "ab[cdef]", false},
      {[](TextBox& b) { b.SetSelText(u"XYZ"); }, "abXYZ|ef", true},
      {[](TextBox& b) { b.SetSelText(u""); }, "ab|ef", true},
      {[](TextBox& b) { b.UserType(u"1\r\n2"); }, "ab12|ef", true},
      {[](TextBox& b) { b.UserEdit(u"abcdef", 1, 4); }, "a[bcde]f", false},
      {[](TextBox& b) { b.UserEdit(u"q", 5, 5); }, "q|", true},
      {[](TextBox& b) {
         b.SetLocked(true);
         b.UserType(u"no");
       },
       "ab[cd]ef", false},
      {[](TextBox& b) {
         b.SetLocked(true);
         b.SetSelText(u"-");
       },
       "ab-|ef", true},
  };
  for (const auto& row : rows) {
    TestForm form;
    form.txtName.SetText(u"abcdef");
    form.txtName.SetSelStart(2);
    form.txtName.SetSelLength(2);
    form.Ran();
    row.deed(form.txtName);
    EXPECT_EQ(Shown(form.txtName), row.after);
    EXPECT_EQ(form.Ran(), row.change ? "txtName" : "");
  }
}

TEST(MultiLine, HasCrLfForEveryLineEndOfAUser) {
  TestForm form;
  form.txtName.SetMultiLine(true);
  form.txtName.UserEdit(u"a\nb\rc\r\nd", 2, 2);
  EXPECT_EQ(Shown(form.txtName), "a\r\n[b\r\n]c\r\nd");
  form.txtName.UserType(u"\n");
  EXPECT_EQ(Shown(form.txtName), "a\r\n\r\n|c\r\nd");
}

}  // namespace
}  // namespace brelmon
