// SPDX-License-Identifier: GPL-2.0-or-later
// Anchored controls through resizes.
#include <gtest/gtest.h>

#include "forms/AnchorObjectList.h"
#include "tests/toolkit/testform.h"

namespace brelmon {
namespace {

struct AnchorForm : Form {
  AnchorForm() : Form(u"AnchorForm") {}
  void Design() override {
    Form::Design(u"Anchored", 4000, 2000, true);
    lbxAll.Move(1000, 500, 1500, 800);
    cpBox.Move(0, 0, 2000, 1000);
    lblIn.SetContainer(cpBox);
    lblIn.Move(1500, 700, 300, 200);
  }
  ListBox lbxAll{*this, u"lbxAll"};
  Frame cpBox{*this, u"cpBox"};
  Label lblIn{*this, u"lblIn"};
};

// The form grows by half: 4000x2000 to 6000x3000. Far margins are 1500 and 700.
TEST(Anchors, FollowTheForm) {
  const struct {
    std::int32_t kind;
    Twips left, width, top, height;  // of lbxAll once the form is 6000x3000
  } rows[] = {{AnchorScaled, 1500, 2250, 750, 1200},     {AnchorFixedScaled, 1000, 2250, 500, 1200},
              {AnchorFixed, 1000, 1500, 500, 800},       {AnchorStretch, 1000, 3500, 500, 1800},
              {AnchorCentred, 1875, 1500, 950, 800},     {AnchorFarEdge, 3000, 1500, 1500, 800},
              {AnchorFarScaled, 2250, 2250, 1100, 1200}, {7, 1000, 1500, 500, 800}};
  for (const auto& row : rows) {
    AnchorForm form;
    AnchorObjectList list;
    list.Item(form.lbxAll)->SetAnchors(row.kind, row.kind);
    list.SetForm(form);
    for (const Twips width : {300.0F, 90000.0F, 6000.0F}) form.Resize(width, width / 2);
    EXPECT_FLOAT_EQ(form.lbxAll.Left(), row.left) << row.kind;
    EXPECT_FLOAT_EQ(form.lbxAll.Width(), row.width) << row.kind;
    EXPECT_FLOAT_EQ(form.lbxAll.Top(), row.top) << row.kind;
    EXPECT_FLOAT_EQ(form.lbxAll.Height(), row.height) << row.kind;
  }
}

TEST(AnchorObjects, MeasureInTheirFrame) {
  AnchorForm form;
  AnchorObject object;
  object.SetControl(form.lblIn);
  object.SetAnchors(AnchorFarEdge, AnchorStretch);
  form.cpBox.Move(0, 0, 2600, 1400);
  object.DoAnchors();
  EXPECT_EQ(form.lblIn.Left(), 2100);
  EXPECT_EQ(form.lblIn.Height(), 600);
}

TEST(AnchorObjects, ANegativeSizeLeavesThatStepUndone) {
  AnchorForm form;
  AnchorObjectList list;
  list.Item(form.lbxAll)->SetAnchors(AnchorStretch, AnchorStretch);
  list.SetForm(form);
  form.Resize(2400, 3000);
  EXPECT_EQ(form.lbxAll.Width(), 1500);
  EXPECT_EQ(form.lbxAll.Height(), 1800) << "the other axis goes on";
}

TEST(AnchorObjects, AContainerWithoutSizeFails) {
  AnchorForm form;
  form.cpBox.SetWidth(0);
  AnchorObject object;
  object.SetControl(form.lblIn);
  EXPECT_EQ(FailureOf([&] { object.SetAnchors(AnchorScaled, AnchorFixed); }), 11);
  EXPECT_EQ(FailureOf([&] { object.SetAnchors(AnchorStretch, AnchorFixed); }), 0);
  form.lblIn.SetWidth(0);
  EXPECT_EQ(FailureOf([&] { object.SetAnchors(AnchorFixedScaled, AnchorFixed); }), 6);
}

TEST(AnchorLists, FindEntriesAndNeverControls) {
  AnchorForm form;
  AnchorObjectList list;
  const auto one = list.Item(form.lbxAll);
  const auto two = list.Item(form.lbxAll);
  EXPECT_EQ(list.Count(), 2);
  EXPECT_EQ(list.IndexOf(form.lbxAll), 0);
  EXPECT_EQ(list.IndexOf(two), 2);
  EXPECT_EQ(list.Count(), 2);

  // Both act, in order: the later one has the last word.
  one->SetAnchors(AnchorFarEdge, AnchorFixed);
  two->SetAnchors(AnchorScaled, AnchorFixed);
  list.SetForm(form);
  form.Resize(8000, 2000);
  EXPECT_EQ(form.lbxAll.Left(), 2000);

  EXPECT_EQ(FailureOf([&] { list.Remove(form.lbxAll); }), 9);
  list.Remove(two);
  form.Resize(9000, 2000);
  EXPECT_EQ(form.lbxAll.Left(), 6000);
  EXPECT_EQ(list.Count(), 1);

  // An entry that is not, or no longer, of the list is held like any object; it can't be placed.
  EXPECT_EQ(list.Item(one)->X().AnchorType, AnchorFarEdge);
  const auto held = list.Item(two);
  EXPECT_EQ(list.IndexOf(held), 2);
  EXPECT_EQ(FailureOf([&] { held->SetAnchors(AnchorFixed, AnchorFixed); }), 438);
}

TEST(AnchorLists, AListThatEndedIsNotHeard) {
  AnchorForm form;
  {
    AnchorObjectList list;
    list.Item(form.lbxAll)->SetAnchors(AnchorFarEdge, AnchorFarEdge);
    list.SetForm(form);
  }
  form.Resize(8000, 4000);
  EXPECT_EQ(form.lbxAll.Left(), 1000);
}

}  // namespace
}  // namespace brelmon
