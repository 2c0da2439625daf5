// SPDX-License-Identifier: GPL-2.0-or-later
// What runs when a control is set or used.
#include "tests/toolkit/testform.h"

namespace brelmon {
namespace {

TEST(Controls, EventsRunByTheirRules) {
  const struct {
    std::function<void(TestForm&)> deed;
    const char* ran;
  } rows[] = {

      {[](TestForm& f) { f.optTwo.SetValue(true); }, "optTwo"},
      {[](TestForm& f) { f.optOne.SetValue(true); }, ""},
      {[](TestForm& f) { f.chkAll.SetValue(2); }, "chkAll"},
      {[](TestForm& f) { f.chkAll.SetValue(1); }, ""},
      {[](TestForm& f) { f.txtName.SetText(u"designed"); }, ""},
      {[](TestForm& f) { f.lbxRows.SetListIndex(0); }, "lbxRows"},
      {[](TestForm& f) { f.lbxRows.SetListIndex(1); }, ""},
      {[](TestForm& f) { f.lbxRows.SetText(u"e"); }, "lbxRows"},
      {[](TestForm& f) { f.lbxRows.UserClick(1); }, "lbxRows"},
      {[](TestForm& f) { f.lbxRows.UserDoubleClick(2); }, "lbxRows lbxRows2"},
      {[](TestForm& f) { f.cbxPick.SetListIndex(1); }, "cbxPick"},
      {[](TestForm& f) { f.cbxPick.UserType(u"b"); }, "cbxPick*"},
      {[](TestForm& f) { f.cbxPick.SetText(u"q"); }, "cbxPick*"},
      {[](TestForm& f) { f.cmdCancel.UserClick(); }, "cmdCancel Unload"},
  };
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    TestForm form;
    form.lbxRows.SetListIndex(1);
    form.Ran();
    rows[i].deed(form);
    EXPECT_EQ(form.Ran(), rows[i].ran) << i;
  }
}

TEST(Controls, ADisabledOneIsOutOfReachForUsersOnly) {
  TestForm form;
  for (Control* control : form.Controls()) control->SetEnabled(false);
  form.Ran();
  form.lbxRows.UserDoubleClick(0);
  form.cbxPick.UserType(u"x");
  form.txtName.UserType(u"x");
  form.chkAll.UserClick();
  form.cmdOK.UserClick();
  EXPECT_EQ(form.Ran(), "");
  form.chkAll.SetValue(0);
  EXPECT_EQ(form.Ran(), "chkAll");
}

TEST(Controls, RefuseWhatIsOutOfRange) {
  TestForm form;
  form.lbxRows.SetListIndex(2);
  const std::vector<std::pair<std::int32_t, std::function<void()>>> rows = {
      {380, [&] { form.lbxRows.SetListIndex(5); }},
      {380, [&] { form.lbxRows.List(5); }},
      {9, [&] { form.lbxRows.Selected(-1); }},
      {380, [&] { form.chkAll.SetValue(3); }},
      {380, [&] { form.lblName.SetWidth(-1); }},
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
      {-1, false, false, "xxx.x2"}, {2, false, false, "..x..2"}, {0, false, false, "x....0"},
      {2, false, true, "xxx..2"},
  };
  for (const auto& step : steps) {
    form.Ran();
    list.UserClick(step.row, step.control, step.shift);
    EXPECT_EQ(marks(), step.after);
    EXPECT_EQ(form.Ran(), step.row < 0 ? "" : "lbxMany");
  }
  list.SetListIndex(4);
  EXPECT_EQ(marks(), "xxx..4");
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
  combo.SetListOnly(true);
  combo.UserType(u"a");
  EXPECT_EQ(combo.Text(), u"d");
  EXPECT_EQ(FailureOf([&] { combo.SetText(u"none of them"); }), 380);
}

struct TreeForm : Form {
  TreeForm() : Form(u"TreeForm") {
    tree.NodeClick = [this](Node& node) { clicked = node.Caption(); };
  }
  void Design() override { tree.SetImageList(&images); }
  TreeView tree{*this, u"tree"};
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
}

}  // namespace
}  // namespace brelmon
