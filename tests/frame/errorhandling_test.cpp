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

TEST(ErrorTrail, ChainShowsTopFirstAndOneBlock) {
  FakeWorld world;
  Guard::Top(
      u"A",
      [] {
        Guard::Inner(
            u"B",
            [] {
              Guard::Inner(
                  u"C", [] { throw Failure(457, u"Where", u"Taken", 12, kModule); }, kModule);
            },
            kModule);
      },
      kModule);
  ASSERT_EQ(world.trails.size(), 1u);
  EXPECT_EQ(ToUtf8(world.trails[0]),
            "Record Call Stack Sequence - Bottom line is error line.\r\n\r\n"
            "\tA src/x/y.cpp \r\n"
            "\tB src/x/y.cpp \r\n"
            "\tC src/x/y.cpp Line : 12\r\n"
            "\r\nError Number \r\n\t457\r\nDescription\r\n\tTaken\r\n\r\n");
  EXPECT_FALSE(ErrorHandling::TrailInProgress());

  // The next failure builds a block of its own, in the same dialog; a statement of another file
  // tells no line.
  Guard::Top(
      u"A", [] { Raise(9, u"Again"); }, kModule);
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
  FakeWorld world;
  const Text label = u"Proc src/x/y.cpp ";
  for (const std::int32_t mode : {2, 7}) {
    ErrorHandling::ReportTrailError(true, label, 9, u"Source", u"Why", mode, 0, 0, 0, 0);
  }
  EXPECT_TRUE(world.trails.empty());
  const std::string box =
      "[Unexpected Program Error] An error has occured in the application.   Record the call stack "
      "sequence\r\nand the description of the error.\r\n\r\nError Call Stack Sequence \r\n"
      "\tProc src/x/y.cpp \r\n\r\nError Number \r\n\t9\r\nDescription\r\n\tWhy\r\n\r\n\n";
  EXPECT_EQ(Boxes(world), box + box);
  EXPECT_EQ(world.boxes[0].style, 48);
  EXPECT_EQ(world.log.front(), "Beep");
}

TEST(Guard, PlainBoxTellsNumberSourceAndDescription) {
  FakeWorld world;
  Guard::PlainBox([] { throw Failure(13, u"Host", u"Misfit", 5, kModule); }, kModule);
  EXPECT_EQ(Boxes(world),
            "[BrelmonOpenTable] Class_Terminate src/x/y.cpp Line : 5\r\n13\r\nHost\r\nMisfit\n");
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
  for (const std::int32_t number : {failure::kRefused, 91}) {
    Guard::TopUnless(
        failure::kRefused, [&] { ++refused; }, u"P", [&] { Raise(number); });
  }
  EXPECT_EQ(refused, 1);
  EXPECT_EQ(world.trails.size(), 1u);
  EXPECT_EQ(FailureIn(world), 91);
}

}  // namespace
}  // namespace brelmon
