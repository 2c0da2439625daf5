// SPDX-License-Identifier: GPL-2.0-or-later
// Numbered text files, and the process's set of services.
#include "platform/textfile.h"

#include <gtest/gtest.h>

#include "frame/guard.h"
#include "platform/failure.h"
#include "tests/support/fake_world.h"

namespace brelmon {
namespace {

const Text kPath = u"C:\\Module\\list.txt";

std::string LinesOf(const std::string& bytes) {
  test::FakeWorld world;
  world.files[kPath] = bytes;
  std::string lines;
  textfile::Open(1, kPath, FileMode::Input);
  while (!textfile::AtEnd(1)) lines += "<" + ToUtf8(textfile::LineInput(1)) + ">";
  textfile::Close(1);
  return lines;
}

TEST(TextFiles, EndLinesAtCrLfAndLoneCr) {
  const struct {
    std::string bytes, lines;
  } rows[] = {
      {"", ""},
      {"a\r\nb\r\n", "<a><b>"},
      {"a\r\nb", "<a><b>"},
      {"a\rb\r", "<a><b>"},
      {"a\nb\n", "<a\nb\n>"},
      {"a\r\r\nb", "<a><><b>"},
      {"\r\n\r\n", "<><>"},
      {"\n\r\n", "<\n>"},
      {std::string("a\0b\r\n", 5), std::string("<a\0b>", 5)},
      {"\x93\xFC\x94", "<\u201C\u00FC\u201D>"},
  };
  for (const auto& row : rows) EXPECT_EQ(LinesOf(row.bytes), row.lines);
}

TEST(TextFiles, FindLineEndsAcrossReads) {
  for (const std::size_t length : {65534u, 65535u, 65536u, 200000u}) {
    const std::string line(length, 'x');
    EXPECT_EQ(LinesOf(line + "\r\nb\r\n"), "<" + line + "><b>") << length;
  }
}

TEST(TextFiles, AppendAndPrintInTheCodePage) {
  test::FakeWorld world;
  world.files[kPath] = "cut";
  textfile::Open(1, kPath, FileMode::Append);
  textfile::PrintLine(1, u" off");
  textfile::PrintLine(1, u"\u20AC\u0416");
  EXPECT_EQ(Guard::Ignore([] { textfile::LineInput(1); }), failure::kBadFileMode);
  textfile::Close(1);
  EXPECT_EQ(world.files[kPath], "cut off\r\n\x80?\r\n");
  textfile::Open(1, kPath, FileMode::Output);
  textfile::Close(1);
  EXPECT_EQ(world.files[kPath], "");
}

TEST(TextFiles, FailWithThePlatformsNumbers) {
  test::FakeWorld world;
  world.files[kPath] = "a";
  EXPECT_EQ(Guard::Ignore([] { textfile::AtEnd(1); }), failure::kBadFileNumber);
  EXPECT_EQ(Guard::Ignore([] { textfile::Open(0, kPath, FileMode::Input); }),
            failure::kBadFileNumber);
  EXPECT_EQ(Guard::Ignore([] { textfile::Open(512, kPath, FileMode::Input); }),
            failure::kBadFileNumber);
  EXPECT_EQ(Guard::Ignore([] { textfile::Open(1, u"C:\\none", FileMode::Input); }),
            failure::kFileNotFound);
  textfile::Open(1, kPath, FileMode::Input);  // the failed opening took no number
  EXPECT_EQ(Guard::Ignore([] { textfile::Open(1, u"C:\\none", FileMode::Input); }),
            failure::kFileAlreadyOpen);
  EXPECT_EQ(Guard::Ignore([] { textfile::PrintLine(1, u""); }), failure::kBadFileMode);
  EXPECT_EQ(textfile::LineInput(1), u"a");
  EXPECT_EQ(Guard::Ignore([] { textfile::LineInput(1); }), failure::kInputPastEnd);
  textfile::Close(1);
  textfile::Close(1);
}

}  // namespace
}  // namespace brelmon
