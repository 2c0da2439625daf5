// SPDX-License-Identifier: GPL-2.0-or-later
// The grammar of media_list.txt.
#include "media/MediaList.h"

#include <gtest/gtest.h>

#include "frame/guard.h"
#include "platform/textfile.h"
#include "tests/support/fake_world.h"

namespace brelmon::test {
namespace {

/// "name|location|code"; "-" for a line without an item, "!" and the number for a failure.
std::string Parse(const Text& line) {
  std::string told;
  const auto number = Guard::Ignore([&] {
    const auto item = ParseMediaLine(line, u"C:\\M/x\\");
    told =
        item ? ToUtf8(item->Name + u"|" + item->Location) + "|" + std::to_string(item->Code) : "-";
  });
  return number != 0 ? "!" + std::to_string(number) : told;
}

TEST(MediaListTest, Lines) {
  const struct {
    const char16_t* line;
    const char* item;
  } rows[] = {
      {u"Delta:images/delta.jpg,1", "Delta|C:\\M\\x\\images\\delta.jpg|1"},
      {u"  Delta:movies\\flood.avi , 2  ", "Delta|C:\\M\\x\\movies\\flood.avi |2"},
      {u"Maps, charts:docs/maps.pdf,6", "Maps, charts|C:\\M\\x\\docs\\maps.pdf|6"},
      {u"Site:http\u00DF//server/page.html,3", "Site|http://server/page.html|3"},
      {u"Site:http\u00DF//server/page.html,5", "Site|C:\\M\\x\\http:\\\\server\\page.html|5"},
      {u"Link:links/survey.url,3", "Link|C:\\M\\x\\links\\survey.url|3"},
      {u"Link:links/survey.URL,3", "Link|links/survey.URL|3"},
      {u"Blank: docs/a.pdf,6", "Blank|C:\\M\\x\\ docs\\a.pdf|6"},
      {u"Unknown:a,9", "Unknown|C:\\M\\x\\a|9"},
      {u"Plus:a,+1", "Plus|C:\\M\\x\\a|1"},
      {u":,0", "|C:\\M\\x\\|0"},
      {u"", "-"},
      {u"no marks", "-"},
      {u"a colon: no comma", "-"},
      {u"a, before:the colon", "!5"},
      {u"comma in location:docs/a,b.pdf,6", "!13"},
      {u"no code:a,", "!13"},
      {u"hexadecimal:a,&H1", "!13"},
      {u"sign alone:a,-", "!13"},
      {u"smallest:a,-2147483648", "smallest|C:\\M\\x\\a|-2147483648"},
      {u"too large:a,2147483648", "!6"},
  };
  for (const auto& row : rows) EXPECT_EQ(Parse(row.line), row.item) << ToUtf8(row.line);
}

TEST(MediaListTest, KindsEndWithTheirTable) {
  Text label = u"the line before";
  for (const auto& [code, row] :
       {std::pair{8, "x   (the line before)"}, {-1, "x   (the line before)"}}) {
    EXPECT_EQ(ToUtf8(AllMediaRow({u"x", {}, {}, code}, label)), row) << code;
  }
  EXPECT_NE(MediaKindOf(7), nullptr);
}

}  // namespace
}  // namespace brelmon::test
