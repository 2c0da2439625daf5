// SPDX-License-Identifier: GPL-2.0-or-later
// The grammar of QuickLoad.txt, its two ways of writing, and what a failed read leaves behind.
#include "quickload/QuickLoadFile.h"

#include <gtest/gtest.h>

#include "frame/guard.h"
#include "tests/quickload/clicks.h"

namespace brelmon::test {
namespace {

/// Records as "tag|field|field", one a line; "!" and the number where reading failed.
std::string Read(FakeWorld& world, const std::string& bytes) {
  world.files[kQuickLoadPath] = bytes;
  std::string told;
  const auto number = Guard::Ignore([&] {
    for (const auto& record : QuickLoadFile::Read(kQuickLoadPath)) {
      told += ToUtf8(KindOf(record).Tag);
      for (const Text& field : record.Fields) told += "|" + ToUtf8(field);
      told += "\n";
    }
  });
  if (number != 0) told = "!" + std::to_string(number);
  textfile::CloseAll();
  return told;
}

TEST(QuickLoadFileTest, Grammar) {
  FakeWorld world;
  const struct {
    const char* what;
    std::string bytes, records;
  } rows[] = {
      {"empty", "", ""},
      {"three kinds in file order",
       "<Query>\r\nBig\r\nPOP > 1\r\n<Bookmark>\r\nGulf\r\n-98.25\r\n17.5\r\n-80\r\n31\r\n"
       "<Layer>\r\nRain\r\nlayers\\rain.qlr\r\n",
       "<Query>|Big|POP > 1\n<Bookmark>|Gulf|-98.25|17.5|-80|31\n<Layer>|Rain|layers\\rain.qlr\n"},
      {"notes between records", "note\r\n<Layer>\r\nA\r\nb\r\n\r\nnote\r\n<Layer>\r\nC\r\nd\r\n",
       "<Layer>|A|b\n<Layer>|C|d\n"},
      {"tag in the wrong case", "<layer>\r\nA\r\nb\r\n<Layer>\r\nC\r\nd\r\n", "<Layer>|C|d\n"},
      {"tag with a blank behind", "<Layer> \r\nA\r\nb\r\n", ""},
      {"tag after a byte-order mark", "\xEF\xBB\xBF<Layer>\r\nA\r\nb\r\n", ""},
      {"names that look like tags", "<Query>\r\n<Query>\r\n<Layer>\r\n",
       "<Query>|<Query>|<Layer>\n"},
      {"blank name and blank query", "<Query>\r\n\r\n\r\n", "<Query>||\n"},
      {"fields keep their blanks", "<Query>\r\n A \r\n\tb \r\n", "<Query>| A |\tb \n"},
      {"lone carriage returns", "<Layer>\rA\rb\r<Query>\rC\rd", "<Layer>|A|b\n<Query>|C|d\n"},
      {"line feeds only", "<Layer>\nA\nb\n", ""},
      {"a line feed inside a field", "<Query>\r\nA\r\nb\nc\r\n", "<Query>|A|b\nc\n"},
      {"single bytes of the code page", "<Query>\r\nGr\xFC\xDF \x80\x81\r\n\x93q\x94\r\n",
       "<Query>|Gr\u00FC\u00DF \u20AC\u0081|\u201Cq\u201D\n"},
      {"tag at the very end", "<Layer>\r\n", "!62"},
      {"layer cut short", "<Layer>\r\nA", "!62"},
      {"bookmark cut short by nothing but one line", "<Bookmark>\r\nA\r\n1\r\n2\r\n3\r\n", "!62"},
  };
  for (const auto& row : rows) EXPECT_EQ(Read(world, row.bytes), row.records) << row.what;
}

TEST(QuickLoadFileTest, AppendDoesNotLookAtWhatIsThere) {
  FakeWorld world;
  using Kind = QuickLoadRecord::Kind;
  QuickLoadFile::Append(kQuickLoadPath, {{Kind::Layer, {u"A", u"b"}}});
  QuickLoadFile::Append(kQuickLoadPath, {{Kind::Query, {u"Q", u"1\r\n2"}}});
  EXPECT_EQ(*QuickLoadBytes(world), "<Layer>\r\nA\r\nb\r\n<Query>\r\nQ\r\n1\r\n2\r\n");
  // A last line without an end takes the tag.
  *QuickLoadBytes(world) = "<Layer>\r\nA\r\nb";
  QuickLoadFile::Append(kQuickLoadPath, {{Kind::Layer, {u"C", u"d"}}});
  EXPECT_EQ(*QuickLoadBytes(world), "<Layer>\r\nA\r\nb<Layer>\r\nC\r\nd\r\n");
}

}  // namespace
}  // namespace brelmon::test
