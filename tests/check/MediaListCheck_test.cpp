// SPDX-License-Identifier: GPL-2.0-or-later
// Each rule of media_list.txt: a module that breaks it, what is found, what the viewer then does.
#include "tests/check/module.h"

namespace brelmon::test {
namespace {

class MediaListCheckTest : public ModuleTest {
 protected:
  MediaListCheckTest() {
    for (const char16_t* name : {u"a.png", u"docs\\b.pdf", u"links\\s.url", u"c.kml"}) Put(name);
  }
};

const std::string kStops =
    "; the media viewer stops here with an error and stays empty; neither it nor QuickLoad can "
    "read "
    "a file until the map application is started anew; ";
const std::string kNotFound = "; the media viewer says that it can't find the file; ";

TEST_F(MediaListCheckTest, SoundListHasNoFindings) {
  SetMedia(
      "What this module brings: notes\r\nA:a.png,1\r\nB, b:docs/b.pdf,6\r\n"
      "a:links/s.url,3\r\nSite:https\xDF//x/y.html,3\r\nweb:www.x.org/y.html,3\r\nK:c.kml, 0");
  EXPECT_EQ(Check(), "");
  EXPECT_EQ(View(),
            "A   (Image)\na   (Website)\nB, b   (PDF File)\nK   (Google Earth File)\n"
            "Site   (Website)\nweb   (Website)\n");
}

TEST_F(MediaListCheckTest, LinesThatStopTheViewer) {
  const struct {
    std::string line, found;
    const char* number;
  } rows[] = {
      {"Maps, charts:docs/b.pdf",
       "the only comma stands before the colon" + kStops + "Maps, charts:docs/b.pdf,6", "\t5\r\n"},
      {"A:a.png,image", "the kind code \"image\" is no whole number" + kStops + "A:a.png,1",
       "\t13\r\n"},
      {"A:a.xyz,", "the kind code \"\" is no whole number" + kStops + "A:a.xyz,CODE", "\t13\r\n"},
      {"A:docs/a,b.pdf,6",
       "a comma stands in the location" + kStops + "rename the file and write: A:docs/a_b.pdf,6",
       "\t13\r\n"},
      {"B:a.png,1\r\nb:a.png,1",
       "the name \"b\" stands already on line 1, in the same kind" + kStops + "b (2):a.png,1",
       "\t457\r\n"},
  };
  for (const auto& row : rows) {
    world.trails.clear();
    SetMedia(row.line + "\r\n");
    const std::string line = row.line.starts_with("B:") ? "2" : "1";
    EXPECT_EQ(Check(), "media_list.txt:" + line + ": " + row.found + "\n");
    EXPECT_EQ(View(), "");
    EXPECT_TOLD(row.number);
    SetServices(CurrentServices());  // a new run of the process: file numbers are forgotten
  }
}

TEST_F(MediaListCheckTest, AllBrokenLinesAreToldThoughTheViewerStopsAtTheFirst) {
  SetMedia("A:a.png,x\r\nB:a.png,1\r\nb:a.png,1\r\n");
  const std::string found = Check();
  EXPECT_NE(found.find("media_list.txt:1:"), std::string::npos);
  EXPECT_NE(found.find("media_list.txt:3:"), std::string::npos);
}

TEST_F(MediaListCheckTest, UnknownKindsMayCollideUnderOneLabel) {
  SetMedia("A:a.png,1\r\nB:a.png,9\r\nb:docs/b.pdf,-1\r\n");
  EXPECT_EQ(Check(),
            "(note) media_list.txt:2: no kind has the code 9; the item stands under \"All Media\" "
            "only, with the label of the item before it; B:a.png,1\n"
            "media_list.txt:3: the name \"b\" stands already on line 2, under the same label" +
                kStops + "b (2):docs/b.pdf,-1\n" +
                "(note) media_list.txt:3: no kind has the code -1; the item stands under \"All "
                "Media\" only, with the label of the item before it; b:docs/b.pdf,6\n");
  EXPECT_EQ(View(), "");
  EXPECT_TOLD("\t457\r\n");
}

TEST_F(MediaListCheckTest, KindDisagreesWithExtension) {
  SetMedia("A:a.png,6\r\n");
  EXPECT_EQ(Check(),
            "(note) media_list.txt:1: the kind code 6 (PDF File) disagrees with the file's "
            "extension; the item is listed among the wrong kind; A:a.png,1\n");
  EXPECT_EQ(View(0, &Media::optPDFs), "A\n");
  EXPECT_EQ(Opened(), "a.png in C:\\Module\\");
}

TEST_F(MediaListCheckTest, FilesTakenForAddressesAndAddressesForFiles) {
  SetMedia("L:links/s.URL,3\r\nP:docs/b.pdf,3\r\nW:http\xDF//x/y,5\r\n");
  const std::string then = "; the media viewer doesn't look for it beside the document; ";
  EXPECT_EQ(Check(), "media_list.txt:1: kind code 3 takes \"links/s.URL\" for a web address" +
                         then + "L:links/s.url,3\n" +
                         "media_list.txt:2: kind code 3 takes \"docs/b.pdf\" for a web address" +
                         then + "P:docs/b.pdf,6\n" +
                         "media_list.txt:3: a web address stands under a kind code of files" +
                         kNotFound + "W:http\u00DF//x/y,3\n");
  View(0);
  EXPECT_EQ(Opened(), "links/s.URL in ");
  View(2);
  EXPECT_TOLD("Unable to find the Word File located at C:\\Module\\http:\\\\x\\y!");
}

TEST_F(MediaListCheckTest, Paths) {
  SetMedia("A: a.png,1\r\nB:gone.png,1\r\nC:C\xDF\\Module\\a.png,1\r\nD:DOCS/b.pdf,6\r\n");
  EXPECT_EQ(Check(),
            "media_list.txt:1: blanks stand around the path" + kNotFound + "A:a.png,1\n" +
                "media_list.txt:2: there is no such file: \"gone.png\"" + kNotFound +
                "put the file there, or write: B:PATH,1\n" +
                "media_list.txt:3: the path is absolute, where one from the document's folder is "
                "wanted" +
                kNotFound + "C:a.png,1\n" +
                "(note) media_list.txt:4: the file's name has other capitals: docs\\b.pdf; the "
                "tools find it all the same, other programs may not; D:docs\\b.pdf,6\n");
  for (const std::int32_t row : {0, 1, 2}) {
    world.boxes.clear();
    View(row);
    EXPECT_TOLD("Unable to find the Image located at ");
  }
  View(3);
  EXPECT_EQ(Opened(), "b.pdf in C:\\Module\\DOCS\\");
}

TEST_F(MediaListCheckTest, ItemWithoutKindIsSkipped) {
  SetMedia("A:a.png\r\n");
  EXPECT_EQ(Check(),
            "media_list.txt:1: the line has no comma and kind code; the media viewer skips the "
            "item; A:a.png,1\n");
  EXPECT_EQ(View(), "");
}

TEST_F(MediaListCheckTest, Apostrophes) {
  Put(u"it's 'so'.pdf");
  Put(u"Bob's.pdf");
  SetMedia("A:it's 'so'.pdf,6\r\nB:Bob's.pdf,6\r\n");
  EXPECT_EQ(Check(),
            "media_list.txt:1: an apostrophe stands in the path; the tools can't tell folder and "
            "file apart and open nothing; rename it and write: A:its so.pdf,6\n");
  View(0);
  EXPECT_NE(Opened(), "it's 'so'.pdf in C:\\Module\\");
  View(1);  // one apostrophe in the file's own name is followed
  EXPECT_EQ(Opened(), "Bob's.pdf in C:\\Module\\");
}

TEST_F(MediaListCheckTest, Utf8SpoilsAddressesAndNames) {
  SetMedia("W:http\xC3\x9F//x/y,3\r\n");
  EXPECT_EQ(
      Check(),
      "media_list.txt:1: the line is encoded as UTF-8; the tools read \"W:http\u00C3\u0178//x/"
      "y,3\"; as Windows-1252: W:http\u00DF//x/y,3\n");
  View(0);
  EXPECT_EQ(Opened(), "http\u00C3\u0178//x/y in ");
}

}  // namespace
}  // namespace brelmon::test
