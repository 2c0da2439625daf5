// SPDX-License-Identifier: GPL-2.0-or-later
// Each rule of QuickLoad.txt: a module that breaks it, what is found, what the tools then do.
#include "tests/check/module.h"

namespace brelmon::test {
namespace {

class QuickLoadCheckTest : public ModuleTest {
 protected:
  void AddLayerFile(const Text& name, bool valid = true) {
    Put(name);
    const auto layer = New<FakeLayer>();
    layer->valid = valid;
    world.layerFiles[u"C:\\Module\\" + name] = layer;
  }
};

TEST_F(QuickLoadCheckTest, SoundFileHasNoFindings) {
  AddLayerFile(u"layers\\rain.qlr");
  SetQuickLoad(
      "a note, with a comma\r\n<Layer>\r\nRain\r\nlayers\\rain.qlr\r\n\r\n<Query>\r\nGr\xFC\xDF\r\n"
      "A = 1\r\n<Bookmark>\r\nGulf\r\n-98.25\r\n17.5\r\n1E+5\r\n31\r\n");
  EXPECT_EQ(Check(), "");
  EXPECT_EQ(Jump(&QuickLoad::optLayers, 0), "Rain\n");
  EXPECT_EQ(Told(), "");
}

TEST_F(QuickLoadCheckTest, TagsInTheWrongCaseOrWithBlanks) {
  SetQuickLoad("<layer>\r\nA\r\nb\r\n<Query> \r\nQ\r\nA = 1\r\n\t<BOOKMARK>\r\nx\r\n");
  EXPECT_EQ(Check(),
            "QuickLoad.txt:1: the tag is written in the wrong case; the tools skip the record: "
            "<Layer> must stand alone and so; <Layer>\n"
            "QuickLoad.txt:4: blanks stand around the tag; the tools skip the record: "
            "<Query> must stand alone and so; <Query>\n"
            "QuickLoad.txt:7: blanks stand around the tag; the tools skip the record: "
            "<Bookmark> must stand alone and so; <Bookmark>\n");
  EXPECT_EQ(Jump(&QuickLoad::optLayers) + Jump(&QuickLoad::optQueries), "");
}

TEST_F(QuickLoadCheckTest, RecordCutShortAtTheEnd) {
  SetQuickLoad("<Bookmark>\r\nGulf\r\n1\r\n2\r\n");
  EXPECT_EQ(
      Check(),
      "QuickLoad.txt:1: the record is cut short: 3 of 5 lines stand behind its tag; QuickLoad "
      "stops with an error, and so does whatever reads the file after it, until the map "
      "application is started anew; add behind line 4 the XMax\n");
  Jump(&QuickLoad::optViews);
  EXPECT_TOLD("\r\n62\r\n");
  SetQuickLoad("");
  Jump(&QuickLoad::optViews);
  EXPECT_TOLD("\r\n55\r\n");
}

TEST_F(QuickLoadCheckTest, RecordCutShortByTheNextTag) {
  SetQuickLoad("<Layer>\r\nRain\r\n<Query>\r\nQ\r\nA = 1\r\n");
  EXPECT_EQ(Check(),
            "QuickLoad.txt:3: the record of line 1 is cut short: a tag stands where its path "
            "should; the tools take the tag for the path and miss the record that it opens; put "
            "before it the path\n");
  EXPECT_EQ(Jump(&QuickLoad::optQueries), "");
  Jump(&QuickLoad::optLayers, 0);
  EXPECT_TOLD(
      "No layer file was found at the following location: \r\n\r\n --> C:\\Module\\<Query>");
}

TEST_F(QuickLoadCheckTest, Paths) {
  AddLayerFile(u"Layers\\Rain.qlr");
  SetQuickLoad(
      "<Layer>\r\nA\r\nc:\\module\\Layers\\Rain.qlr\r\n<Layer>\r\nB\r\nD:\\other\\x.qlr\r\n"
      "<Layer>\r\nC\r\ngone.qlr\r\n<Layer>\r\nD\r\nLayers\\Rain.qlr \r\n"
      "<Layer>\r\nE\r\nlayers\\rain.QLR\r\n<Layer>\r\nF\r\nLayers\r\n");
  const std::string then = "; choosing the layer says that no layer file was found; ";
  const std::string absolute =
      "the path is absolute, where one from the document's folder is wanted" + then;
  EXPECT_EQ(
      Check(),
      "QuickLoad.txt:3: " + absolute + "Layers\\Rain.qlr\n" +  //
          "QuickLoad.txt:6: " + absolute + "copy the file to the module and write: x.qlr\n" +
          "QuickLoad.txt:9: there is no such file: \"gone.qlr\"" + then +
          "put the file there, or write: PATH\n" +
          "QuickLoad.txt:12: blanks stand around the path" + then + "Layers\\Rain.qlr\n" +
          "(note) QuickLoad.txt:15: the file's name has other capitals: Layers\\Rain.qlr; the "
          "tools find it all the same, other programs may not; Layers\\Rain.qlr\n"
          "QuickLoad.txt:18: the path is that of a folder; it can't be opened; "
          "Layers\\FILE\n");
  for (const std::int32_t row : {0, 1, 2, 3}) {
    world.boxes.clear();
    Jump(&QuickLoad::optLayers, row);
    EXPECT_TOLD("No layer file was found");
  }
  world.boxes.clear();
  Jump(&QuickLoad::optLayers, 4);
  EXPECT_EQ(Told(), "");
  Jump(&QuickLoad::optLayers, 5);
  EXPECT_TOLD("Class_Terminate");
}

TEST_F(QuickLoadCheckTest, LayerFilesThatCannotBeShown) {
  AddLayerFile(u"gone.qlr", false);
  Put(u"several.qlr");
  SetQuickLoad("<Layer>\r\nA\r\ngone.qlr\r\n<Layer>\r\nB\r\nseveral.qlr\r\n");
  EXPECT_EQ(Check(), "");  // a host that can't open layer files says nothing
  auto module = Module();
  module.OpenLayerFile = [&](const Text& path) {
    if (path.ends_with(u"several.qlr")) Raise(failure::kRefused);
    return world.layerFiles[path];
  };
  const auto findings = CheckModule(module);
  ASSERT_EQ(findings.size(), 2u);
  EXPECT_EQ(ToUtf8(ToLine(findings[0])),
            "QuickLoad.txt:3: the data of the layer in this file is gone; choosing the layer says "
            "that it is invalid; put the data back, or save the layer file anew");
  EXPECT_EQ(ToUtf8(ToLine(findings[1])),
            "QuickLoad.txt:6: the layer file can't be read as one layer; choosing the layer stops "
            "with an error; save one layer in it");
  Jump(&QuickLoad::optLayers, 0);
  EXPECT_TOLD("The layer named 'A' is invalid.");
  Jump(&QuickLoad::optLayers, 1);
  EXPECT_TOLD("Class_Terminate");
}

TEST_F(QuickLoadCheckTest, Numbers) {
  SetQuickLoad(
      "<Bookmark>\r\nA\r\n-98,25\r\n1,5E+3\r\n1,234.5\r\n31\r\n"
      "<Bookmark>\r\nB\r\nnorth\r\n,\r\n\r\n1\r\n");
  EXPECT_EQ(Check(),
            "QuickLoad.txt:3: the number is written with a comma; the tools read it as -9825; "
            "-98.25\n"
            "QuickLoad.txt:4: the number is written with a comma; the tools read it as 15000; "
            "1.5E+3\n"
            "QuickLoad.txt:5: the number is written with a comma; the tools read it as 1234.5; "
            "1234.5\n"
            "QuickLoad.txt:9: \"north\" is no number; choosing the bookmark stops with an error; a "
            "number such as -98.25\n"
            "QuickLoad.txt:10: the number is written with a comma; choosing the bookmark stops "
            "with an error; .\n"
            "QuickLoad.txt:11: \"\" is no number; choosing the bookmark stops with an error; a "
            "number such as -98.25\n");
  Jump(&QuickLoad::optExtents, 0);
  EXPECT_EQ(world.map->extent->bounds[0], -9825);
  EXPECT_EQ(world.map->extent->bounds[1], 15000);
  Jump(&QuickLoad::optExtents, 1);
  EXPECT_TOLD("\r\n13\r\n");
}

TEST_F(QuickLoadCheckTest, ByteOrderMark) {
  SetQuickLoad("\xEF\xBB\xBF<Query>\r\nQ\r\nA = 1\r\n");
  EXPECT_EQ(
      Check(),
      "QuickLoad.txt:1: the file begins with a byte-order mark; the tools take it for letters "
      "of the first line (\u00EF\u00BB\u00BF); run check --fix, or save the file as "
      "Windows-1252 (ANSI) with CR LF line ends\n");
  EXPECT_EQ(Jump(&QuickLoad::optQueries), "");
  SetQuickLoad("\xEF\xBB\xBFnote\r\n<Query>\r\nQ\r\nA = 1\r\n");
  EXPECT_TRUE(Check().starts_with("(note) QuickLoad.txt:1: ")) << Check();
  EXPECT_EQ(Jump(&QuickLoad::optQueries), "Q\n");
}

TEST_F(QuickLoadCheckTest, Utf8) {
  AddLayerFile(u"Fl\u00FCsse.qlr");
  SetQuickLoad(
      "Gr\xC3\xBC\xC3\x9F\x65\r\n<Layer>\r\nGr\xC3\xBCn\r\nFl\xC3\xBCsse.qlr\r\n"
      "<Query>\r\n\xE6\xB2\xB3\r\nA = 1\r\n");
  EXPECT_EQ(
      Check(),
      "(note) QuickLoad.txt:1: the line is encoded as UTF-8; the tools read \"Gr\u00C3\u00BC"
      "\u00C3\u0178e\"; as Windows-1252: Gr\u00FC\u00DFe\n"
      "QuickLoad.txt:3: the line is encoded as UTF-8; the tools read \"Gr\u00C3\u00BCn\"; as "
      "Windows-1252: Gr\u00FCn\n"
      "QuickLoad.txt:4: the line is encoded as UTF-8; the tools read \"Fl\u00C3\u00BCsse.qlr\""
      "; as Windows-1252: Fl\u00FCsse.qlr\n"
      "QuickLoad.txt:6: the line is encoded as UTF-8; the tools read \"\u00E6\u00B2\u00B3\"; "
      "write it with letters that Windows-1252 has: \u6CB3\n");
  EXPECT_EQ(Jump(&QuickLoad::optLayers, 0), "Gr\u00C3\u00BCn\n");
  EXPECT_TOLD("No layer file was found");
}

TEST_F(QuickLoadCheckTest, LineEnds) {
  SetQuickLoad("<Query>\nQ\nA = 1\n");
  EXPECT_TRUE(
      Check().starts_with("QuickLoad.txt:1: the lines end in LF only; the tools take the "
                          "whole file for one line and find nothing in it; "))
      << Check();
  EXPECT_EQ(Jump(&QuickLoad::optQueries), "");

  // A line feed among proper line ends: the lines below are counted as an editor counts them.
  SetQuickLoad("note\nnote\r\n<Query>\r\nQ\nA = 1\r\nB = 2\r\n<Query> \r\n");
  const std::string mixed = Check();
  EXPECT_NE(
      mixed.find("(note) QuickLoad.txt:1: the line ends in LF only; the tools take it and the "
                 "next for one line; "),
      std::string::npos)
      << mixed;
  EXPECT_NE(mixed.find("\nQuickLoad.txt:4: the line ends in LF only"), std::string::npos) << mixed;
  EXPECT_NE(mixed.find("\nQuickLoad.txt:7: blanks stand"), std::string::npos) << mixed;
  EXPECT_EQ(Jump(&QuickLoad::optQueries), "Q\nA = 1\n");  // one row, with a line feed in it
}

TEST_F(QuickLoadCheckTest, NoLineEndAtTheEnd) {
  SetQuickLoad("<Query>\r\nQ\r\nA = 1");
  EXPECT_EQ(Check(),
            "(note) QuickLoad.txt:3: the last line has no line end; a shortcut added by an editor "
            "command sticks to it and is never found; press Enter behind it, or run check --fix\n");
  *world.FileAt(u"C:\\Module\\QuickLoad.txt") += "<Query>\r\nR\r\nB = 2\r\n";  // as it is appended
  EXPECT_EQ(Jump(&QuickLoad::optQueries), "Q\n");
}

TEST_F(QuickLoadCheckTest, Utf16AndNoFile) {
  SetQuickLoad(std::string("\xFF\xFE<\0Q\0", 6));
  EXPECT_TRUE(Check().starts_with("QuickLoad.txt:1: the file is encoded as UTF-16")) << Check();
  EXPECT_EQ(Jump(&QuickLoad::optQueries), "");
  world.files.erase(u"C:\\Module\\QuickLoad.txt");
  EXPECT_TRUE(Check().starts_with("(note) QuickLoad.txt:1: there is no such file; ")) << Check();
}

}  // namespace
}  // namespace brelmon::test
