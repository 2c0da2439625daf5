// SPDX-License-Identifier: GPL-2.0-or-later
#include "frame/errorhandling.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "frame/guard.h"
#include "tests/support/fake_world.h"

namespace brelmon {
namespace {

using test::FakeWorld;

constexpr const char* kModule = "src/x/y.cpp";

void Report(bool isTop, std::int32_t mode, const Text& label = u"Proc src/x/y.cpp ") {
  ErrorHandling::ReportTrailError(isTop, label, 9, u"Source", u"Why", mode, 0, 0, 0, 0);
}

TEST(ErrorTrail, ChainShowsTopFirstAndOneBlock) {
  FakeWorld world;
  const auto failing = [] {
    Guard::Inner(
        u"C", [] { throw Failure(457, u"Where", u"Taken", 12); }, kModule);
  };
  const auto middle = [&] {
    Guard::Inner(
        u"B", [&] { failing(); }, kModule);
  };
  Guard::Top(
      u"A", [&] { middle(); }, kModule);
  ASSERT_EQ(world.trails.size(), 1u);
  EXPECT_EQ(ToUtf8(world.trails[0]),
            "Record Call Stack Sequence - Bottom line is error line.\r\n\r\n"
            "\tA src/x/y.cpp \r\n"
            "\tB src/x/y.cpp \r\n"
            "\tC src/x/y.cpp Line : 12\r\n"
            "\r\nError Number \r\n\t457\r\nDescription\r\n\tTaken\r\n\r\n");
  EXPECT_FALSE(ErrorHandling::TrailInProgress());

  // The next failure builds a block of its own, and the dialog is the same one.
  Guard::Top(
      u"A", [] { Raise(9, u"Again", 0); }, kModule);
  ASSERT_EQ(world.trails.size(), 2u);
  EXPECT_NE(ToUtf8(world.trails[1]).find("\tA src/x/y.cpp \r\n\r\nError Number \r\n\t9\r\n"),
            std::string::npos);
  EXPECT_EQ(std::count(world.log.begin(), world.log.end(), "NewErrorDialog"), 1);
}

TEST(ErrorTrail, NumberAndSourceSurviveEachLevel) {
  FakeWorld world;
  try {
    Guard::Inner(u"B", [] { Guard::Inner(u"C", [] { throw Failure(91, u"Host", u"Unset"); }); });
    FAIL() << "an inner guard block has to raise again";
  } catch (const Failure& failed) {
    EXPECT_EQ(failed.Number, 91);
    EXPECT_EQ(failed.Source, u"Host");
    EXPECT_TRUE(failed.Description.starts_with(u"\tB "));
  }
  EXPECT_TRUE(ErrorHandling::TrailInProgress());
  EXPECT_TRUE(world.trails.empty());
}

TEST(ErrorTrail, OtherModesUseTheMessageBox) {
  for (const std::int32_t mode : {2, 3, 0, 7}) {
    FakeWorld world;
    Report(true, mode);
    EXPECT_TRUE(world.trails.empty()) << mode;
    ASSERT_EQ(world.boxes.size(), 1u) << mode;
    EXPECT_EQ(world.boxes[0].style, 48);
    EXPECT_EQ(world.boxes[0].title, u"Unexpected Program Error");
    EXPECT_EQ(ToUtf8(world.boxes[0].text),
              "An error has occured in the application.   Record the call stack sequence\r\n"
              "and the description of the error.\r\n\r\nError Call Stack Sequence \r\n"
              "\tProc src/x/y.cpp \r\n"
              "\r\nError Number \r\n\t9\r\nDescription\r\n\tWhy\r\n\r\n");
    EXPECT_EQ(world.log.front(), "Beep");
  }
}

TEST(ErrorTrail, LineTextIsEmptyForLineZero) {
  EXPECT_EQ(ErrorHandling::ErrorLineText(0), u"");
  EXPECT_EQ(ErrorHandling::ErrorLineText(31), u"Line : 31");
}

TEST(Guard, PlainBoxTellsNumberSourceAndDescription) {
  FakeWorld world;
  Guard::PlainBox([] { throw Failure(13, u"Host", u"Misfit", 5); }, kModule);
  ASSERT_EQ(world.boxes.size(), 1u);
  EXPECT_EQ(world.boxes[0].text, u"Class_Terminate src/x/y.cpp Line : 5\r\n13\r\nHost\r\nMisfit");
  EXPECT_EQ(world.boxes[0].style, 0);
  EXPECT_EQ(world.boxes[0].title, u"BrelmonOpenTable");
  EXPECT_TRUE(world.trails.empty());
}

TEST(Guard, WhateverIsThrownBecomesAFailureAndTheDefaultResult) {
  FakeWorld world;
  EXPECT_FALSE(Guard::Top(u"P", []() -> bool { throw std::bad_alloc(); }));
  EXPECT_EQ(Guard::Top(u"P", []() -> Text { throw std::out_of_range("x"); }), u"");
  EXPECT_EQ(Guard::Top(u"P", []() -> int { throw 3; }), 0);
  const std::string all = Trails(world);
  for (const char* number : {"\t7\r\n", "\t9\r\n", "\t51\r\n"}) {
    EXPECT_NE(all.find(number), std::string::npos) << number;
  }
  EXPECT_EQ(Guard::Ignore([] { Raise(53); }), 53);
  EXPECT_EQ(Guard::Ignore([] {}), 0);
}

TEST(Guard, OneNumberIsAnsweredAndTheRestGoesToTheTrail) {
  FakeWorld world;
  int refused = 0;
  const auto run = [&](std::int32_t number) {
    Guard::TopUnless(
        failure::kRefused, [&] { ++refused; }, u"P", [&] { Raise(number); });
  };
  run(failure::kRefused);
  EXPECT_EQ(refused, 1);
  EXPECT_TRUE(world.trails.empty());
  run(91);
  EXPECT_EQ(refused, 1);
  EXPECT_EQ(world.trails.size(), 1u);
}

TEST(Guard, TheModuleIsNamedFromTheRepositorysRoot) {
  FakeWorld world;
  Guard::Top(u"P", [] { Raise(5); });
  EXPECT_NE(Trails(world).find("\tP tests/frame/errorhandling_test.cpp Line : "),
            std::string::npos);
}

}  // namespace
}  // namespace brelmon
