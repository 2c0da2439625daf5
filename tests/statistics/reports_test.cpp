// SPDX-License-Identifier: GPL-2.0-or-later
// The report windows: wrapping for print, copying, printing, layout, closing.
#include <gtest/gtest.h>

#include "statistics/frmReport.h"
#include "statistics/frmReport_modal.h"
#include "tests/support/fake_world.h"

namespace brelmon {
namespace {

using test::FakeWorld;

std::string Line(std::size_t length, char letter) { return std::string(length, letter); }
std::string Times(int count, const std::string& text) {
  return count == 0 ? "" : text + Times(count - 1, text);
}

struct WrapRow {
  std::string text, wrapped;
};

TEST(Wrapping, ForPrint) {
  const WrapRow rows[] = {
      {"", ""},
      {Line(70, 'a'), Line(70, 'a')},
      // A rule of a report breaks behind its 70th hyphen; a last line without an end gets one.
      {"Head\r\n" + Line(74, '-') + "\r\ntail",
       "Head\r\n" + Line(70, '-') + "\r\n----\r\ntail\r\n"},
      {"Head\r\nto be cut", "Head\r\nto be \r\ncut\r\n"},
      // The first line may reach to 140.
      {Line(71, 'a'), Line(71, 'a') + "\r\n"},
      {Line(200, 'a'), Line(140, 'a') + "\r\n" + Line(60, 'a') + "\r\n"},
      {Line(100, 'x') + " " + Line(100, 'y'),
       Line(100, 'x') + " \r\n" + Line(70, 'y') + "\r\n" + Line(30, 'y') + "\r\n"},
      // A line that ends within reach is left alone, to the last place.
      {"a\r\n" + Line(68, 'b') + "\r\n", "a\r\n" + Line(68, 'b') + "\r\n"},
      // One letter more, and the line end itself is cut in two.
      {"a\r\n" + Line(69, 'b') + "\r\n", "a\r\n" + Line(69, 'b') + "\r\r\n\n"},
      {"a\r\n" + Line(70, 'b') + "\r\n", "a\r\n" + Line(70, 'b') + "\r\n\r\n"},
      {"a\r\n" + Line(150, 'w') + "\r\n",
       "a\r\n" + Line(70, 'w') + "\r\n" + Line(70, 'w') + "\r\n" + Line(10, 'w') + "\r\n"},
      {"a\r\n" + Line(49, 'b') + "-" + Line(150, 'c') + "\r\n",
       "a\r\n" + Line(49, 'b') + "-\r\n" + Line(70, 'c') + "\r\n" + Line(70, 'c') + "\r\n" +
           Line(10, 'c') + "\r\n"},
      // 42 breaks push 84 characters of the end out of reach.
      {"a\r\n" + Line(2940, 'w') + "\r\n" + Line(80, 'z'),
       "a\r\n" + Times(42, Line(70, 'w') + "\r\n") + "\r\n" + Line(80, 'z')},
  };
  for (const auto& row : rows) EXPECT_EQ(ToUtf8(WrapForPrint(FromUtf8(row.text))), row.wrapped);
}

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
  EXPECT_EQ(FailureIn(this->world), 482);
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
  form->cmdOK.UserClick();
  EXPECT_FALSE(frame->Visible());
  form->Unload();
  EXPECT_FALSE(Same(form->Frame(), frame));
  form->Unload();
}

TEST(ReportWindow, FollowsItsFrameDownToASmallestSize) {
  FakeWorld world;
  const auto form = New<frmReport>();
  form->Frame();
  const Twips right = form->txtReport.Width();
  form->Resize(form->Width() + 3000, form->Height() + 1500);
  EXPECT_EQ(form->txtReport.Width(), right + 3000);
  form->Resize(1995, 9000);
  form->Resize(9000, 2600);
  EXPECT_EQ(form->txtReport.Width(), right + 3000);
  form->Resize(2010, 2610);
  EXPECT_EQ(form->txtReport.Width(), right + 2010 - 7200);
  form->Unload();
}

TEST(ModalReportWindow, ScalesItsButtonsAcrossAndUnloadsOnExit) {
  FakeWorld world;
  const auto form = New<frmReport_modal>();
  world.users[u"frmReport_modal"] = [&](Form&) {
    const Twips left = form->cmdPrint.Left();
    form->Resize(form->Width() * 2, form->Height() * 2);
    EXPECT_FLOAT_EQ(form->cmdPrint.Left(), left * 2);
    form->UserEscape();
  };
  form->ShowModal();
  EXPECT_EQ(form->LoadState(), Form::State::Unloaded);
}

}  // namespace
}  // namespace brelmon
