// SPDX-License-Identifier: GPL-2.0-or-later
// The host around the document: boxes, forms, windows, dialogs, printer, progress.
#include <sstream>

#include "tests/hosts/headless/module.h"
#include "toolkit/controls.h"

namespace brelmon::headless {
namespace {

class AskForm : public Form {
 public:
  AskForm() : Form(u"frmAsk") {}

 protected:
  void Design() override { Form::Design(u"Name?", 3000, 1515); }
};

class HostTest : public testing::Test {
 protected:
  HostTest() : host(module.Open({})) { host.Boxes().SetStream(out); }
  IHostObjects& Objects() { return *host.HostServices().objects; }
  Module module;
  HeadlessHost& host;
  std::ostringstream out;
};

TEST_F(HostTest, BoxesArePrintedAndAnswered) {
  EXPECT_EQ(MsgBox(u"Go?\r\nReally?", box::kYesNo, u"Confirm:"), box::kAnswerNo);
  EXPECT_EQ(MsgBox(u"Go?", box::kOkCancel), box::kAnswerCancel);
  EXPECT_EQ(MsgBox(u"Done", box::kInformation), box::kAnswerOk);
  const Ref<IErrorDialog> dialog = Objects().NewErrorDialog();
  dialog->SetText(u"trail\r\nend");
  EXPECT_EQ(host.Boxes().Shown(), 3);
  dialog->SetVisible(true);
  EXPECT_EQ(
      out.str(),
      "[Confirm:] Go?\nReally?\n[BrelmonOpenTable] Go?\n[BrelmonOpenTable] Done\ntrail\nend\n");
}

TEST_F(HostTest, FormsThatNobodyAnswersFail) {
  const auto form = std::make_shared<AskForm>();
  EXPECT_EQ(NumberOf([&] { form->ShowModal(); }), failure::kNotSupported);
  host.Forms().Register(u"frmAsk", [](Form&) {});
  EXPECT_EQ(NumberOf([&] { form->ShowModal(); }), failure::kNotSupported) << "left open";
  EXPECT_FALSE(form->Visible());
  host.Forms().Register(u"frmAsk", [](Form&) { throw std::bad_alloc(); });
  EXPECT_THROW(form->ShowModal(), std::bad_alloc);
  EXPECT_FALSE(form->Visible());
}

TEST_F(HostTest, DialogsAreAnsweredInAdvance) {
  const Ref<IGxDialog> dialog = Objects().NewGxDialog();
  Ref<IEnumGxObject> chosen;
  EXPECT_EQ(NumberOf([&] { dialog->DoModalOpen(0, chosen); }), failure::kNotSupported);
  host.Catalog().Cancel();
  EXPECT_FALSE(dialog->DoModalOpen(0, chosen));
  module.Write("Notes.txt", "x");
  host.Catalog().Choose({module.Path("notes.TXT")});
  EXPECT_TRUE(dialog->DoModalOpen(0, chosen));
  EXPECT_EQ(chosen->Next()->FullName(), host::Paths().ToWindows(module.Path("Notes.txt")));
  dialog->SetObjectFilter(GxFilter::LayerFiles);
  for (const char* second : {"Notes.txt", "b.qlr"}) {  // no layer file; several where one is asked
    host.Catalog().Choose({module.Path("a.qlr"), module.Path(second)});
    EXPECT_EQ(NumberOf([&] { dialog->DoModalOpen(0, chosen); }), 5);
  }
  host.Catalog().Choose({module.Path("new.dbf")});
  EXPECT_TRUE(dialog->DoModalSave(0));
  EXPECT_EQ(dialog->FinalLocation(), host::Paths().ToWindows(module.Path()));
}

TEST_F(HostTest, LayerFilesHoldOneLayer) {
  MakeShapefile(module.Path("sites.shp"));
  const auto layerFile = [&](const std::vector<LayerXml>& layers) {
    std::string text = ProjectXml(TreeLayer("a"), layers);
    for (const std::string from : {"<qgis", "</qgis", "<projectlayers", "</projectlayers"}) {
      const bool layersTag = from.ends_with("layers");
      text.replace(text.find(from), from.size(),
                   from.substr(0, from.find_first_of("pq")) + (layersTag ? "maplayers" : "qlr"));
    }
    module.Write("layers/a.qlr", text);
    const Ref<IGxLayer> file = Objects().NewGxLayer();
    file.As<IGxFile>()->SetPath(host::Paths().ToWindows(module.Path("layers/A.qlr")));
    return file;
  };
  EXPECT_TRUE(layerFile({{"a", "../sites.shp"}})->Layer()->Valid());
  EXPECT_FALSE(layerFile({{"a", "sites.shp"}})->Layer()->Valid()) << "counts from its own folder";
  EXPECT_EQ(NumberOf([&] {
              layerFile({{"a", "../sites.shp"}, {"b", "../sites.shp"}})->Layer();
            }),
            5);
  EXPECT_EQ(NumberOf([&] { layerFile({})->Layer(); }), 5);
  EXPECT_EQ(NumberOf([&] { layerFile({{"a", "x.dbf", "ogr", "No geometry"}})->Layer(); }), 5);
}

TEST_F(HostTest, ThePrinterWritesWhereItIsTold) {
  EXPECT_EQ(NumberOf([] { Printer().SetFontSize(10); }), failure::kPrinter);
  EXPECT_EQ(NumberOf([] { Printer().Print(u"x"); }), failure::kPrinter);
  host.Printer().SetFile(module.Path("out.txt"));
  Printer().Print(u"one\r\ntwo");
  Printer().Print(u"");
  Printer().EndDoc();
  Printer().Print(u"\u00DF");
  Printer().EndDoc();
  EXPECT_EQ(BytesOf(module.Path("out.txt")), "one\ntwo\n\n\f\xC3\x9F\n");
}

}  // namespace
}  // namespace brelmon::headless
