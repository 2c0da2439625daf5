// SPDX-License-Identifier: GPL-2.0-or-later
// What runs when a control is set or used.
#include "tests/toolkit/testform.h"

namespace brelmon {
namespace {

struct EventRow {
  const char* name;
  std::function<void(TestForm&)> deed;
  const char* ran;
};

void PrintTo(const EventRow& row, std::ostream* out) { *out << row.name; }

class Events : public testing::TestWithParam<EventRow> {};

TEST_P(Events, RunByTheirRules) {
  TestForm form;
  form.EnsureLoaded();
  form.lbxRows.SetListIndex(1);
  form.Ran();
  GetParam().deed(form);
  EXPECT_EQ(form.Ran(), GetParam().ran);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Events,
    testing::Values(
        EventRow{"option set", [](TestForm& f) { f.optTwo.SetValue(true); }, "optTwo"},
        EventRow{"option already on", [](TestForm& f) { f.optOne.SetValue(true); }, ""},
        EventRow{"option set off", [](TestForm& f) { f.optOne.SetValue(false); }, ""},
        EventRow{"option clicked", [](TestForm& f) { f.optTwo.UserClick(); }, "optTwo"},
        EventRow{"check set", [](TestForm& f) { f.chkAll.SetValue(2); }, "chkAll"},
        EventRow{"check same", [](TestForm& f) { f.chkAll.SetValue(1); }, ""},
        EventRow{"check clicked", [](TestForm& f) { f.chkAll.UserClick(); }, "chkAll"},
        EventRow{"text set", [](TestForm& f) { f.txtName.SetText(u"new"); }, "txtName"},
        EventRow{"text same", [](TestForm& f) { f.txtName.SetText(u"designed"); }, ""},
        EventRow{"text nothing put in", [](TestForm& f) { f.txtName.SetSelText(u""); }, ""},
        EventRow{"row set", [](TestForm& f) { f.lbxRows.SetListIndex(0); }, "lbxRows"},
        EventRow{"row same", [](TestForm& f) { f.lbxRows.SetListIndex(1); }, ""},
        EventRow{"no row", [](TestForm& f) { f.lbxRows.SetListIndex(-1); }, ""},
        EventRow{"row by text", [](TestForm& f) { f.lbxRows.SetText(u"e"); }, "lbxRows"},
        EventRow{"row by no text", [](TestForm& f) { f.lbxRows.SetText(u""); }, ""},
        EventRow{"row selected", [](TestForm& f) { f.lbxRows.SetSelected(3, true); }, "lbxRows"},
        EventRow{"row deselected", [](TestForm& f) { f.lbxRows.SetSelected(1, false); }, ""},
        EventRow{"row clicked again", [](TestForm& f) { f.lbxRows.UserClick(1); }, "lbxRows"},
        EventRow{"below the rows", [](TestForm& f) { f.lbxRows.UserClick(-1); }, ""},
        EventRow{"double", [](TestForm& f) { f.lbxRows.UserDoubleClick(2); }, "lbxRows lbxRows2"},
        EventRow{"double below", [](TestForm& f) { f.lbxRows.UserDoubleClick(-1); }, "lbxRows2"},
        EventRow{"row added", [](TestForm& f) { f.lbxRows.AddItem(u"f"); }, ""},
        EventRow{"rows cleared", [](TestForm& f) { f.lbxRows.Clear(); }, ""},
        EventRow{"many selected", [](TestForm& f) { f.lbxMany.SetSelected(1, true); }, "lbxMany"},
        EventRow{"many same", [](TestForm& f) { f.lbxMany.SetSelected(1, false); }, ""},
        EventRow{"many focus row", [](TestForm& f) { f.lbxMany.SetListIndex(1); }, "lbxMany"},
        EventRow{"combo set", [](TestForm& f) { f.cbxPick.SetListIndex(1); }, "cbxPick"},
        EventRow{"combo none", [](TestForm& f) { f.cbxPick.SetListIndex(-1); }, ""},
        EventRow{"combo typed", [](TestForm& f) { f.cbxPick.UserType(u"b"); }, "cbxPick*"},
        EventRow{"combo text set", [](TestForm& f) { f.cbxPick.SetText(u"q"); }, "cbxPick*"},
        EventRow{"unloads itself", [](TestForm& f) { f.cmdCancel.UserClick(); },
                 "cmdCancel Unload"}));

TEST(Controls, ADisabledOneIsOutOfReachForUsersOnly) {
  TestForm form;
  for (Control* control : form.Controls()) control->SetEnabled(false);
  form.Ran();
  form.lbxRows.UserClick(0);
  form.lbxRows.UserDoubleClick(0);
  form.cbxPick.UserChoose(0);
  form.cbxPick.UserType(u"x");
  form.txtName.UserType(u"x");
  form.chkAll.UserClick();
  form.cmdOK.UserClick();
  EXPECT_EQ(form.Ran(), "");
  EXPECT_EQ(form.Focused(), nullptr);
  form.chkAll.SetValue(0);
  EXPECT_EQ(form.Ran(), "chkAll");
}

TEST(Controls, OptionsGroupByContainer) {
  TestForm form;
  form.optApart.SetValue(true);
  EXPECT_TRUE(form.optOne.Value());
  form.optTwo.SetValue(true);
  EXPECT_FALSE(form.optOne.Value());
  EXPECT_TRUE(form.optApart.Value());
}

TEST(Controls, RefuseWhatIsOutOfRange) {
  TestForm form;
  form.lbxRows.SetListIndex(2);
  const std::vector<std::pair<std::int32_t, std::function<void()>>> rows = {
      {380, [&] { form.lbxRows.SetListIndex(5); }},
      {380, [&] { form.lbxRows.SetListIndex(-2); }},
      {380, [&] { form.lbxRows.List(5); }},
      {9, [&] { form.lbxRows.Selected(-1); }},
      {380, [&] { form.cbxPick.SetListIndex(5); }},
      {380, [&] { form.chkAll.SetValue(3); }},
      {380, [&] { form.lblName.SetWidth(-1); }},
      {380, [&] { form.lblName.Move(0, 0, 10, -1); }},
      {380, [&] { form.txtName.SetSelStart(-1); }},
      {380, [&] { form.lblName.SetContainer(form.cmdOK); }},
      {380, [&] { form.cpGroup.SetContainer(form.cpGroup); }},
  };
  const Text before = form.Dump();
  for (const auto& [number, deed] : rows) EXPECT_EQ(FailureOf(deed), number);
  EXPECT_EQ(form.Dump(), before);
}

TEST(ListBoxes, ExtendedSelection) {
  TestForm form;
  form.EnsureLoaded();
  ListBox& list = form.lbxMany;
  const auto marks = [&list] {
    std::string text;
    for (std::int32_t row = 0; row < list.ListCount(); ++row)
      text += list.Selected(row) ? 'x' : '.';
    return text + std::to_string(list.ListIndex());
  };
  struct {
    std::int32_t row;
    bool control, shift;
    const char* after;
  } const steps[] = {
      {1, false, true, ".x...1"},   {3, false, true, ".xxx.3"},  {0, false, true, "xx...0"},
      {4, true, false, "xx..x4"},   {1, true, false, "x...x1"},  {2, true, true, "xxx.x2"},
      {-1, false, false, "xxx.x2"}, {2, false, false, "..x..2"},
  };
  for (const auto& step : steps) {
    form.Ran();
    list.UserClick(step.row, step.control, step.shift);
    EXPECT_EQ(marks(), step.after);
    EXPECT_EQ(form.Ran(), step.row < 0 ? "" : "lbxMany");
  }
  list.SetListIndex(4);
  EXPECT_EQ(marks(), "..x..4");
}

TEST(ComboBoxes, TextAndIndexFollowEachOther) {
  TestForm form;
  ComboBox& combo = form.cbxPick;
  combo.UserChoose(2);
  EXPECT_EQ(combo.Text(), u"c");
  combo.UserType(u"cc");
  EXPECT_EQ(combo.ListIndex(), -1);
  combo.UserType(u"d");
  EXPECT_EQ(combo.ListIndex(), 3);
  combo.SetListIndex(-1);
  EXPECT_EQ(combo.Text(), u"");
  combo.SetListOnly(true);
  combo.UserType(u"a");
  EXPECT_EQ(combo.Text(), u"");
  combo.SetText(u"a");
  EXPECT_EQ(combo.ListIndex(), 0);
  EXPECT_EQ(FailureOf([&] { combo.SetText(u"none of them"); }), 380);
}

struct TreeForm : Form {
  TreeForm() : Form(u"TreeForm") {
    tree.NodeClick = [this](Node& node) { clicked = node.Caption(); };
  }
  void Design() override { tree.SetImageList(&images); }
  TreeView tree{*this, u"tree"};
  RichTextBox rich{*this, u"rich"};
  ImageList images;
  Text clicked;
};

TEST(Trees, NodesByKeyAndPosition) {
  TreeForm form;
  form.images.Add(std::make_shared<PictureData>());
  form.images.Add(std::make_shared<PictureData>());
  form.tree.AddNode(u"", u"F", u"Field", 1);
  form.tree.AddNode(u"f", u"F.min", u"Minimum", 2).Tag = u"Minimum";
  EXPECT_EQ(form.tree.NodeAt(2).Parent(), &form.tree.NodeOf(u"F"));
  EXPECT_EQ(FailureOf([&] { form.tree.AddNode(u"", u"f", u"again", 1); }), 457);
  EXPECT_EQ(FailureOf([&] { form.tree.AddNode(u"G", u"x", u"lost", 1); }), 5);
  EXPECT_EQ(FailureOf([&] { form.tree.AddNode(u"", u"x", u"blank", 3); }), 9);
  EXPECT_EQ(FailureOf([&] { form.tree.NodeAt(3); }), 9);
  EXPECT_EQ(FailureOf([&] { form.images.Item(0); }), 9);

  form.tree.UserExpand(form.tree.NodeAt(1), true);
  form.tree.UserNodeClick(form.tree.NodeAt(2));
  form.tree.NodeAt(2).SetImage(1);
  EXPECT_EQ(form.clicked, u"Minimum");
  EXPECT_EQ(ToUtf8(form.tree.Dump()),
            "TreeView tree 0,0 0x0 focus nodes=2: \"Field\" #1 key=\"F\" expanded "
            "{>\"Minimum\" #1/2 key=\"F.min\" tag=\"Minimum\"}");
  form.tree.ClearNodes();
  EXPECT_EQ(form.tree.SelectedNode(), nullptr);
  EXPECT_EQ(form.tree.NodeCount(), 0);
  form.tree.AddNode(u"", u"F", u"Field", 1);
}

TEST(RichText, RunsAndPlainText) {
  TreeForm form;
  form.rich.SetRuns({{u"Title\r\n", {u"", 14, true, true}, 0}, {u"Body", {}, 300}});
  EXPECT_EQ(form.rich.PlainText(), u"Title\r\nBody");
  EXPECT_EQ(ToUtf8(form.rich.Dump()),
            "RichTextBox rich 0,0 0x0 runs=2: [bold underline 14] \"Title\\r\\n\", "
            "indent=300 \"Body\"");
}

}  // namespace
}  // namespace brelmon
