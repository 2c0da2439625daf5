// SPDX-License-Identifier: GPL-2.0-or-later
// Map documents: finding, reading, refusing.
#include "hosts/headless/project.h"

#include <cpl_vsi.h>

#include "tests/hosts/headless/module.h"

namespace brelmon::headless {
namespace {

const std::string kOptionMark =
    "<customproperties><Option type=\"Map\"><Option type=\"bool\" name=\"brelmon/dataFrame\" "
    "value=\"true\"/></Option></customproperties>";
const std::string kPropertyMark =
    "<customproperties><property key=\"brelmon/dataFrame\" value=\"true\"/></customproperties>";

std::string Group(const std::string& name, const std::string& inside, bool checked = true) {
  return "<layer-tree-group name=\"" + name + "\" checked=\"" +
         (checked ? "Qt::Checked" : "Qt::Unchecked") + "\" expanded=\"0\">" + inside +
         "</layer-tree-group>";
}

std::string ReasonOf(const std::string& module) {
  try {
    ReadProject(FindMapDocument(module));
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return {};
}

/// "name(items)" for each frame, the focus with a star, items by depth.
std::string Frames(const HeadlessHost& host) {
  std::string text;
  for (const Ref<IMap>& frame : host.Frames()) {
    text += (Same(frame, host.Document()->FocusMap()) ? "*" : "") + ToUtf8(frame->Name()) + "(";
    for (const TreeItem& item : HeadlessHost::ItemsOf(frame)) {
      const auto layer = item.object.TryAs<ILayer>();
      text += std::string(static_cast<std::size_t>(item.depth), '>') +
              ToUtf8(layer ? layer->Name() : item.object.As<IStandaloneTable>()->Name()) + " ";
    }
    text += ") ";
  }
  return text;
}

class ProjectTest : public testing::Test {
 protected:
  HeadlessHost& Open(const std::string& tree) {
    module.Write("map.qgs", ProjectXml(tree, {{"a", "a.shp"},
                                              {"b", "b.shp"},
                                              {"t", "t.dbf", "ogr", "No geometry"},
                                              {"r", "r.tif", "gdal"}}));
    host = std::make_unique<HeadlessHost>(module.Path());
    return *host;
  }
  TempFolder module;
  std::unique_ptr<HeadlessHost> host;
};

TEST_F(ProjectTest, FramesAreMarkedGroups) {
  EXPECT_EQ(
      Frames(Open(TreeLayer("a") + Group("One", kOptionMark + TreeLayer("b"), false) +
                  Group("Plain", TreeLayer("t")) +
                  Group("Two", kPropertyMark + Group("In", TreeLayer("a")) + TreeLayer("t")))),
      "One(b ) *Two(In >a t ) ");
}

TEST_F(ProjectTest, WithoutMarksOneFrameHoldsAll) {
  EXPECT_EQ(Frames(Open(TreeLayer("a") + Group("G", TreeLayer("t") + Group("H", TreeLayer("r"))) +
                        TreeLayer("lost"))),
            "*Layers(a G >t >H >>r ) ");
  EXPECT_EQ(host->Document()->FocusMap()->LayerCount(), 2);
}

TEST_F(ProjectTest, ArchivesOpenLikeFiles) {
  MakeShapefile(module.Path("sites.shp"));
  const std::string xml = ProjectXml(TreeLayer("s"), {{"s", "./sites.shp"}});
  VSILFILE* archive =
      VSIFOpenL(("/vsizip/{" + module.Path("map.zip") + "}/inside.qgs").c_str(), "wb");
  VSIFWriteL(xml.data(), 1, xml.size(), archive);
  VSIFCloseL(archive);
  std::filesystem::rename(module.Path("map.zip"), module.Path("Map.QGZ"));
  HeadlessHost opened(module.Path("map.qgz"));
  EXPECT_EQ(Frames(opened), "*Layers(s ) ");
  EXPECT_TRUE(opened.Document()->FocusMap()->Layers({}, true)->Next()->Valid());
  const Ref<ITemplates> templates = opened.Application()->Templates();
  EXPECT_EQ(templates->Item(templates->Count() - 1),
            host::Paths().ToWindows(module.Path("Map.QGZ")));
}

TEST_F(ProjectTest, RefusalsSayWhy) {
  EXPECT_NE(ReasonOf(module.Path()).find("holds no map document"), std::string::npos);
  EXPECT_NE(ReasonOf(module.Path("none.qgs")).find("no such file"), std::string::npos);
  struct Row {
    const char* file;
    std::string text;
    const char* reason;
  };
  const std::string whole = ProjectXml(TreeLayer("a"), {{"a", "a.shp"}});
  for (const Row& row :
       {Row{"a.txt", "x", "no map document"}, Row{"empty.qgs", "", "empty.qgs: line 1"},
        Row{"half.qgs", whole.substr(0, whole.size() / 2), "half.qgs: line 2"},
        Row{"other.qgs", "<html/>", "no QGIS file"}, Row{"bare.qgs", "<qgis/>", "no layer tree"},
        Row{"text.qgz", "no archive", "can't be opened as an archive"}}) {
    EXPECT_NE(ReasonOf(module.Write(row.file, row.text)).find(row.reason), std::string::npos)
        << row.file << ": " << ReasonOf(module.Path(row.file));
  }
  EXPECT_NE(ReasonOf(module.Path()).find("bare.qgs, empty.qgs, ..."), std::string::npos);
}

}  // namespace
}  // namespace brelmon::headless
