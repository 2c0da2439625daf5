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

struct CaretRow {
  const char* name;
  std::function<void(TextBox&)> deed;
  const char* after;
  bool change;
};

void PrintTo(const CaretRow& row, std::ostream* out) { *out << row.name; }

class Caret : public testing::TestWithParam<CaretRow> {};

// Each row starts from "ab[cd]ef".
TEST_P(Caret, EndsWhereItBelongs) {
  TestForm form;
  TextBox& box = form.txtName;
  box.SetText(u"abcdef");
  box.SetSelStart(2);
  box.SetSelLength(2);
  form.Ran();
  GetParam().deed(box);
  EXPECT_EQ(Shown(box), GetParam().after);
  EXPECT_EQ(form.Ran(), GetParam().change ? "txtName" : "");
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Caret,
    testing::Values(
        CaretRow{"set", [](TextBox& b) { b.SetText(u"xyz"); }, "|xyz", true},
        CaretRow{"set the same", [](TextBox& b) { b.SetText(u"abcdef"); }, "ab[cd]ef", false},
        CaretRow{"start", [](TextBox& b) { b.SetSelStart(4); }, "abcd|ef", false},
        CaretRow{"start beyond", [](TextBox& b) { b.SetSelStart(99); }, "abcdef|", false},
        CaretRow{"length beyond", [](TextBox& b) { b.SetSelLength(99); }, "ab[cdef]", false},
        CaretRow{"replace", [](TextBox& b) { b.SetSelText(u"XYZ"); }, "abXYZ|ef", true},
        CaretRow{"delete", [](TextBox& b) { b.SetSelText(u""); }, "ab|ef", true},
        CaretRow{"replace alike", [](TextBox& b) { b.SetSelText(u"cd"); }, "abcd|ef", false},
        CaretRow{"type", [](TextBox& b) { b.UserType(u"1\r\n2"); }, "ab12|ef", true},
        CaretRow{"move", [](TextBox& b) { b.UserEdit(u"abcdef", 1, 4); }, "a[bcde]f", false},
        CaretRow{"edit beyond", [](TextBox& b) { b.UserEdit(u"q", 5, 5); }, "q|", true},
        CaretRow{"locked typing",
                 [](TextBox& b) {
                   b.SetLocked(true);
                   b.UserType(u"no");
                 },
                 "ab[cd]ef", false},
        CaretRow{"locked moving",
                 [](TextBox& b) {
                   b.SetLocked(true);
                   b.UserEdit(u"abcdef", 0, 0);
                 },
                 "|abcdef", false},
        CaretRow{"locked for users only",
                 [](TextBox& b) {
                   b.SetLocked(true);
                   b.SetSelText(u"-");
                 },
                 "ab-|ef", true}));

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
