// SPDX-License-Identifier: GPL-2.0-or-later
// The report windows: wrapping for print, copying, printing, layout, closing.
#include <gtest/gtest.h>

#include "statistics/frmReport.h"
#include "statistics/frmReport_modal.h"
#include "tests/support/fake_world.h"

namespace brelmon {
namespace {

using test::FakeWorld;

std::string Run(std::size_t length, char letter) { return std::string(length, letter); }
std::string Times(int count, const std::string& text) {
  return count == 0 ? "" : text + Times(count - 1, text);
}

struct WrapRow {
  std::string text, wrapped;
};

class Wrapping : public testing::TestWithParam<WrapRow> {};

TEST_P(Wrapping, ForPrint) {
  EXPECT_EQ(ToUtf8(WrapForPrint(FromUtf8(GetParam().text))), GetParam().wrapped);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Wrapping,
    testing::Values(
        WrapRow{"", ""}, WrapRow{Run(70, 'a'), Run(70, 'a')},
        // A rule of a report breaks behind its 70th hyphen; a last line without an end gets one.
        WrapRow{"Head\r\n" + Run(74, '-') + "\r\ntail",
                "Head\r\n" + Run(70, '-') + "\r\n----\r\ntail\r\n"},
        WrapRow{"Head\r\nto be cut", "Head\r\nto be \r\ncut\r\n"},
        // The first line may reach to 140.
        WrapRow{Run(71, 'a'), Run(71, 'a') + "\r\n"},
        WrapRow{Run(200, 'a'), Run(140, 'a') + "\r\n" + Run(60, 'a') + "\r\n"},
        WrapRow{Run(100, 'x') + " " + Run(100, 'y'),
                Run(100, 'x') + " \r\n" + Run(70, 'y') + "\r\n" + Run(30, 'y') + "\r\n"},
        // A line that ends within reach is left alone, to the last place.
        WrapRow{"a\r\n" + Run(68, 'b') + "\r\n", "a\r\n" + Run(68, 'b') + "\r\n"},
        // One letter more, and the line end itself is cut in two.
        WrapRow{"a\r\n" + Run(69, 'b') + "\r\n", "a\r\n" + Run(69, 'b') + "\r\r\n\n"},
        WrapRow{"a\r\n" + Run(70, 'b') + "\r\n", "a\r\n" + Run(70, 'b') + "\r\n\r\n"},
        WrapRow{"a\r\n" + Run(150, 'w') + "\r\n",
                "a\r\n" + Run(70, 'w') + "\r\n" + Run(70, 'w') + "\r\n" + Run(10, 'w') + "\r\n"},
        WrapRow{"a\r\n" + Run(49, 'b') + "-" + Run(150, 'c') + "\r\n",
                "a\r\n" + Run(49, 'b') + "-\r\n" + Run(70, 'c') + "\r\n" + Run(70, 'c') + "\r\n" +
                    Run(10, 'c') + "\r\n"},
        // 42 breaks push 84 characters of the end out of reach.
        WrapRow{"a\r\n" + Run(2940, 'w') + "\r\n" + Run(80, 'z'),
                "a\r\n" + Times(42, Run(70, 'w') + "\r\n") + "\r\n" + Run(80, 'z')}));

template <class Report>
class Reports : public testing::Test {
 protected:
  FakeWorld world;
  Ref<Report> form = New<Report>();
};
using Windows = testing::Types<frmReport, frmReport_modal>;
TYPED_TEST_SUITE(Reports, Windows);

TYPED_TEST(Reports, CopyWhatStandsInTheBox) {
  this->form->txtReport.SetText(u"Mean: 3.6");
  this->form->txtReport.UserType(u"My ");
  this->world.clipboard = u"old";
  this->form->cmdCopy.UserClick();
  EXPECT_EQ(this->world.clipboard, u"My Mean: 3.6");
  EXPECT_TRUE(this->form->cmdOK.HasFocus());
}

TYPED_TEST(Reports, PrintWrappedAndKeepTheBox) {
  const Text text = u"Head\r\n" + Text(74, u'-') + u"\r\n";
  this->form->txtReport.SetText(text);
  this->form->cmdPrint.UserClick();
  const std::vector<Text> printed = {u"Head\r\n" + Text(70, u'-') + u"\r\n----\r\n", u""};
  EXPECT_EQ(this->world.printed, printed);
  EXPECT_EQ(this->world.log, (test::Log{"Printer font 12", "Printer end"}));
  EXPECT_EQ(this->form->txtReport.Text(), text);
}

TYPED_TEST(Reports, TellOfAMissingPrinter) {
  this->world.printerMissing = true;
  this->form->txtReport.SetText(u"Mean: 3.6");
  this->form->cmdPrint.UserClick();
  EXPECT_NE(Trails(this->world).find("\tcmdPrint_Click src/statistics/frmReport"),
            std::string::npos);
  EXPECT_NE(Trails(this->world).find("\t482\r\n"), std::string::npos);
  EXPECT_TRUE(this->world.printed.empty());
  EXPECT_EQ(this->form->txtReport.Text(), u"Mean: 3.6");
}

TEST(ReportWindow, HasOneFrameThatExitHides) {
  FakeWorld world;
  const auto form = New<frmReport>();
  const auto frame = form->Frame();
  EXPECT_EQ(frame->Caption(), u"Report");
  EXPECT_TRUE(Same(form->Frame(), frame));
  frame->SetVisible(true);
  form->txtReport.SetText(u"kept");
  form->cmdOK.UserClick();
  EXPECT_FALSE(frame->Visible());
  EXPECT_EQ(form->txtReport.Text(), u"kept");
  form->Unload();
  EXPECT_FALSE(Same(form->Frame(), frame));
  form->Unload();
}

TEST(ReportWindow, FollowsItsFrameDownToASmallestSize) {
  FakeWorld world;
  const auto form = New<frmReport>();
  form->Frame();
  const Twips right = form->txtReport.Width(), below = form->Height() - form->cmdCopy.Top();
  form->Resize(form->Width() + 3000, form->Height() + 1500);
  EXPECT_EQ(form->txtReport.Width(), right + 3000);
  EXPECT_EQ(form->Height() - form->cmdCopy.Top(), below);
  EXPECT_EQ(form->imgCornerBars.Left() + form->imgCornerBars.Width(), form->Width());
  const Text before = form->Dump().substr(form->Dump().find(u'\n'));
  for (const Twips height : {9000.0F, 2600.0F}) {
    form->Resize(height == 9000 ? 1995.0F : 9000.0F, height);
    EXPECT_EQ(form->Dump().substr(form->Dump().find(u'\n')), before);
  }
  form->Resize(2010, 2610);
  EXPECT_EQ(form->txtReport.Width(), right + 2010 - 7200);
  form->Unload();
  EXPECT_EQ(Trails(world), "");
}

TEST(ModalReportWindow, ScalesItsButtonsAcrossAndUnloadsOnExit) {
  FakeWorld world;
  const auto form = New<frmReport_modal>();
  world.users[u"frmReport_modal"] = [&](Form&) {
    const Twips left = form->cmdPrint.Left(), below = form->Height() - form->cmdPrint.Top();
    const Twips margin = form->Width() - form->txtReport.Width();
    form->Resize(form->Width() * 2, form->Height() * 2);
    EXPECT_FLOAT_EQ(form->cmdPrint.Left(), left * 2);
    EXPECT_FLOAT_EQ(form->Height() - form->cmdPrint.Top(), below);
    EXPECT_FLOAT_EQ(form->Width() - form->txtReport.Width(), margin);
    form->UserEscape();
  };
  form->txtReport.SetText(u"gone");
  form->ShowModal();
  EXPECT_EQ(form->LoadState(), Form::State::Unloaded);
  EXPECT_EQ(form->txtReport.Text(), u"");
  EXPECT_EQ(Trails(world), "");
}

}  // namespace
}  // namespace brelmon
