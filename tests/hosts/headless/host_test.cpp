// SPDX-License-Identifier: GPL-2.0-or-later
// The host around the document: boxes, forms, windows, dialogs, printer, progress.
#include <sstream>

#include "tests/hosts/headless/module.h"
#include "toolkit/controls.h"

namespace brelmon::headless {
namespace {

class AskForm : public Form {
 public:
  AskForm() : Form(u"frmAsk") {
    cmdOK.Click = [this] {
      answer = txtName.Text();
      Hide();
    };
  }
  TextBox txtName{*this, u"txtName"};
  CommandButton cmdOK{*this, u"cmdOK"};
  Text answer;
  int activated = 0;

 protected:
  void Design() override { Form::Design(u"Name?", 3000, 1515); }
  void Form_Activate() override { ++activated; }
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
  host.Boxes().SetAnswer([](const Text&, int style, const Text&) {
    return (style & box::kYesNo) != 0 ? box::kAnswerYes : box::kAnswerOk;
  });
  EXPECT_EQ(MsgBox(u"Now?", box::kYesNo | box::kCritical), box::kAnswerYes);
  const Ref<IErrorDialog> dialog = Objects().NewErrorDialog();
  dialog->SetText(u"trail\r\nend");
  EXPECT_EQ(host.Boxes().Shown(), 4);
  dialog->SetVisible(true);
  EXPECT_EQ(host.Boxes().Shown(), 5);
  EXPECT_EQ(out.str(),
            "[Confirm:] Go?\nReally?\n[BrelmonOpenTable] Go?\n[BrelmonOpenTable] Done\n"
            "[BrelmonOpenTable] Now?\ntrail\nend\n");
}

TEST_F(HostTest, FormsAreWorkedByTheirUser) {
  const auto form = std::make_shared<AskForm>();
  host.Forms().Register(u"FRMASK", [&](Form& shown) {
    EXPECT_TRUE(shown.Visible());
    static_cast<TextBox&>(shown.ControlNamed(u"txtName")).UserType(u"Ann");
    static_cast<CommandButton&>(shown.ControlNamed(u"cmdOK")).UserClick();
  });
  form->ShowModal();
  EXPECT_EQ(form->answer, u"Ann");
  EXPECT_EQ(form->activated, 1);
  EXPECT_FALSE(form->Visible());
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

TEST_F(HostTest, ModelessFramesShowTheirForm) {
  const auto form = std::make_shared<AskForm>();
  const Ref<IModelessFrame> frame = Objects().NewModelessFrame();
  frame->Create(Ref<IObject>(form));
  frame->SetCaption(u"Report");
  EXPECT_TRUE(host.Modeless().Visible().empty());
  frame->SetVisible(true);
  ASSERT_EQ(host.Modeless().Visible().size(), 1U);
  EXPECT_EQ(host.Modeless().Visible()[0], form);
  form->EnsureLoaded();
  EXPECT_EQ(frame.As<IWindowPosition>()->Width(), 200);
  EXPECT_EQ(frame.As<IWindowPosition>()->Height(), 101);
}

TEST_F(HostTest, DialogsAreAnsweredInAdvance) {
  const Ref<IGxDialog> dialog = Objects().NewGxDialog();
  dialog->SetTitle(u"Pick");
  Ref<IEnumGxObject> chosen;
  EXPECT_EQ(NumberOf([&] { dialog->DoModalOpen(0, chosen); }), failure::kNotSupported);
  host.Catalog().Cancel();
  EXPECT_FALSE(dialog->DoModalOpen(0, chosen));
  module.Write("Notes.txt", "x");
  host.Catalog().Choose({module.Path("notes.TXT")});
  EXPECT_TRUE(dialog->DoModalOpen(0, chosen));
  EXPECT_EQ(chosen->Next()->FullName(), host::Paths().ToWindows(module.Path("Notes.txt")));
  EXPECT_FALSE(chosen->Next());
  dialog->SetObjectFilter(GxFilter::LayerFiles);
  host.Catalog().Choose({module.Path("Notes.txt")});
  EXPECT_EQ(NumberOf([&] { dialog->DoModalOpen(0, chosen); }), 5);
  host.Catalog().Choose({module.Path("a.qlr"), module.Path("b.qlr")});
  EXPECT_EQ(NumberOf([&] { dialog->DoModalOpen(0, chosen); }), 5) << "several where one is asked";
  host.Catalog().Choose({module.Path("new.dbf")});
  EXPECT_TRUE(dialog->DoModalSave(0));
  EXPECT_EQ(dialog->Name(), u"new.dbf");
  EXPECT_EQ(dialog->FinalLocation(), host::Paths().ToWindows(module.Path()));
}

TEST_F(HostTest, LayerFilesHoldOneLayer) {
  MakeShapefile(module.Path("sites.shp"));
  const auto layerFile = [&](const std::vector<LayerXml>& layers) {
    std::string text = ProjectXml(TreeLayer("a"), layers);
    for (const auto& [from, to] : {std::pair<std::string, std::string>{"<qgis", "<qlr"},
                                   {"</qgis", "</qlr"},
                                   {"<projectlayers", "<maplayers"},
                                   {"</projectlayers", "</maplayers"}}) {
      text.replace(text.find(from), from.size(), to);
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
  const Ref<IGxLayer> none = Objects().NewGxLayer();
  EXPECT_EQ(NumberOf([&] { none->Layer(); }), 53);
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
  host.Printer().SetFile(module.Path("none/out.txt"));
  EXPECT_EQ(NumberOf([] { Printer().EndDoc(); }), failure::kPrinter);
}

TEST_F(HostTest, ProgressIsTold) {
  std::string seen;
  host.StatusBar().SetListener([&](const Progress& now) {
    seen += now.visible ? std::to_string(now.position) + " " : "hidden";
  });
  const Ref<IStatusBar> bar = host.Application()->StatusBar();
  bar->StepProgressBar();  // nothing is shown yet
  bar->ShowProgressBar(u"Gathering", 1, 3, 1, true);
  for (int i = 0; i < 3; ++i) bar->StepProgressBar();
  bar->HideProgressBar();
  EXPECT_EQ(seen, "1 2 3 3 hidden");
}

TEST_F(HostTest, DialogsOfADesktopAreRefusedByName) {
  const auto find = [&](const char16_t* identifier) {
    return host.Application()->Document()->CommandBars()->Find(New<UID>(Text(identifier)));
  };
  const Ref<ICommandItem> byLocation = find(u"{82b9951b-dd63-11d1-aa7f-00c04fa37860}");
  ASSERT_TRUE(byLocation);
  EXPECT_EQ(NumberOf([&] { byLocation->Execute(); }), failure::kNotSupported);
  EXPECT_FALSE(find(u"{00000000-0000-0000-0000-000000000000}"));
  EXPECT_EQ(NumberOf([&] { Objects().NewSummarizeDialog()->DoModal(0); }), failure::kNotSupported);
}

}  // namespace
}  // namespace brelmon::headless
