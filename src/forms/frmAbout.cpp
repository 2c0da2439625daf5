// SPDX-License-Identifier: GPL-2.0-or-later
// The About box: version, what the modules are for, two links, system information.
#include "forms/frmAbout.h"

#include "forms/aboutconfig.h"
#include "forms/aboutpages.h"
#include "forms/pictures.h"
#include "frame/configuration.h"
#include "frame/guard.h"
#include "frame/version.h"
#include "platform/number.h"
#include "util/aml_func_mod.h"

namespace brelmon {
namespace {

constexpr int kNormalWindow = 1;
/// Characters of a registry value that fit, a closing zero among them.
constexpr std::size_t kBufferSize = 1024;
constexpr Twips kParagraphIndent = 240;

void OpenPage(TextView page) { Shell().Execute(PageAddress(page), {}, kNormalWindow); }

/// A bold heading over an indented paragraph.
void AddSection(std::vector<RichTextBox::Run>& runs, TextView heading, TextView paragraph) {
  const Font body{u"Arial", 8};
  Font bold = body;
  bold.Bold = true;
  if (!runs.empty()) runs.push_back({u"\r\n", body});
  runs.push_back({Text(heading) + u"\r\n", bold});
  runs.push_back({Text(paragraph) + u"\r\n", body, kParagraphIndent});
}

std::vector<RichTextBox::Run> ModuleText() {
  std::vector<RichTextBox::Run> runs;
  AddSection(runs, u"Investigating relevant problems:",
             u"Each module starts from a question that matters outside the classroom: where the "
             u"ground shakes, who lives in a storm's path, how a city's weather has changed. "
             u"Students work on it with the data that scientists use; instructors get maps, "
             u"tables and media laid out in advance, so that the lesson begins with the question "
             u"and not with the software.");
  AddSection(runs, u"Interpreting meaningful patterns:",
             u"A map shows where, a table shows how much. Students ask questions of attributes, "
             u"select what answers them, and read statistics in plain words, with large and small "
             u"numbers named. Instructors can save the queries, views and layers that bring a "
             u"pattern into sight, and lead a whole class to the same place with one click.");
  AddSection(runs, u"Thinking scientifically:",
             u"Every number can be traced to the records behind it: which were counted, which "
             u"were left out, and why. Students learn to doubt a missing value, to compare a mean "
             u"with its median, and to support a claim with evidence that others can repeat.");
  return runs;
}

}  // namespace

bool GetKeyValue(RegistryRoot KeyRoot, const Text& KeyName, const Text& SubKeyRef, Text& KeyVal) {
  return Guard::Top(u"GetKeyValue", [&] {
    Value value;
    const bool found = Registry().Query(KeyRoot, KeyName, SubKeyRef, value);
    const Text* read = value.If<Text>();
    if (!found || (read != nullptr && read->size() > kBufferSize)) {
      KeyVal.clear();
      return false;
    }
    if (read != nullptr) {
      KeyVal = *read;
      if (!KeyVal.empty() && KeyVal.back() == u'\0') KeyVal.pop_back();
    } else if (const std::int32_t* number = value.If<std::int32_t>()) {
      KeyVal = GeneralText(*number);
    }
    return true;
  });
}

frmAbout::frmAbout() : Form(u"frmAbout") {
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdSysInfo.Click = [this] { cmdSysInfo_Click(); };
  lblWebSite.Click = [this] { lblWebSite_Click(); };
  lblSponsor2.Click = [this] { lblSponsor2_Click(); };
  picMakerLogo.Click = [this] { picMakerLogo_Click(); };
  lblWebSite.MouseMove = [this] { lblWebSite_MouseMove(); };
  lblSponsor2.MouseMove = [this] { lblSponsor2_MouseMove(); };
}

void frmAbout::Design() {
  Form::Design(u"About BRELMON:", 8400, 7200, true);
  imgBrelmon.Move(180, 180, 1800, 2400);
  imgBrelmon.SetPicture(PictureOf("brelmon.bmp", u"A globe over a table"));
  rtfAbout.Move(2160, 180, 6060, 5100);
  rtfAbout.SetToolTipText(u"What the learning modules are for");
  lblVersion.SetCaption(u"Version:");
  lblVersion.Move(180, 5460, 1860, 255);
  picMakerLogo.Move(180, 5820, 960, 960);
  picMakerLogo.SetPicture(PictureOf("logo.bmp", u"Home page"));
  lglGIS.SetCaption(u"ArcGIS Tools by ");
  lglGIS.Move(1320, 5940, 1380, 255);
  lblWebSite.SetCaption(Text(about::kMakerName));
  lblWebSite.Move(2700, 5940, 3300, 255);
  lblSponsor1.SetCaption(Text(about::kSponsorLine));
  lblSponsor1.Move(1320, 6360, 4500, 255);
  lblSponsor2.SetCaption(Text(about::kSponsorName));
  lblSponsor2.Move(1320, 6660, 4500, 255);
  for (Label* link : {&lblWebSite, &lblSponsor2}) {
    link->SetForeColor(colour::kBlue);
    link->SetFont({{}, 0, false, true});
  }
  cmdSysInfo.SetCaption(u"&System Info...");
  cmdSysInfo.Move(6300, 5820, 1740, 375);
  cmdOK.SetCaption(u"OK");
  cmdOK.Move(6300, 6360, 1740, 375);
  cmdOK.SetDefault(true);
  cmdOK.SetCancel(true);
  imgCornerBars.Move(8160, 6960, 225, 225);
  imgCornerBars.SetPicture(CornerBars());
}

void frmAbout::Form_Load() {
  Guard::Top(u"Form_Load", [&] {
    anchors_ = std::make_unique<AnchorObjectList>();
    const auto anchor = [&](Control& control, AnchorKind x, AnchorKind y) {
      anchors_->Item(control)->SetAnchors(x, y);
    };
    anchor(cmdOK, AnchorFarEdge, AnchorFarEdge);
    anchor(cmdSysInfo, AnchorFarEdge, AnchorFarEdge);
    anchor(imgCornerBars, AnchorFarEdge, AnchorFarEdge);
    anchor(lblVersion, AnchorFixed, AnchorFarEdge);
    anchor(lblWebSite, AnchorFixed, AnchorFarEdge);
    anchor(lblSponsor1, AnchorFixed, AnchorFarEdge);
    anchor(lblSponsor2, AnchorFixed, AnchorFarEdge);
    anchor(rtfAbout, AnchorStretch, AnchorStretch);
    anchor(lglGIS, AnchorFixed, AnchorFarEdge);
    anchor(imgBrelmon, AnchorFixed, AnchorFixed);
    anchor(picMakerLogo, AnchorFixed, AnchorFarEdge);
    anchors_->SetForm(*this);
    SetCaption(u"About BRELMON GIS Tools");
    lblVersion.SetCaption(u"Version " + GeneralText(kVersion.Major) + u"." +
                          GeneralText(kVersion.Minor) + u"." + GeneralText(kVersion.Revision));
    rtfAbout.SetRuns(ModuleText());
    const Picture hand = PictureOf("hand.cur", u"Hand");
    lblWebSite.SetMouseIcon(hand);
    picMakerLogo.SetMouseIcon(hand);
    lblSponsor2.SetMouseIcon(hand);
  });
}

void frmAbout::Form_MouseMove() {
  Guard::Top(u"Form_MouseMove", [&] {
    lblWebSite.SetForeColor(colour::kBlue);
    lblSponsor2.SetForeColor(colour::kBlue);
  });
}

void frmAbout::lblWebSite_MouseMove() {
  Guard::Top(u"lblWebSite_MouseMove", [&] { lblWebSite.SetForeColor(colour::kRed); });
}

void frmAbout::lblSponsor2_MouseMove() {
  Guard::Top(u"lblSponsor2_MouseMove", [&] { lblSponsor2.SetForeColor(colour::kRed); });
}

void frmAbout::lblWebSite_Click() {
  Guard::Top(u"lblWebSite_Click", [] { OpenPage(configuration::kMakerPage); });
}

void frmAbout::picMakerLogo_Click() {
  Guard::Top(u"picMakerLogo_Click", [] { OpenPage(configuration::kMakerPage); });
}

void frmAbout::lblSponsor2_Click() {
  Guard::Top(u"lblSponsor2_Click", [] { OpenPage(configuration::kSponsorPage); });
}

void frmAbout::cmdSysInfo_Click() {
  Guard::Top(u"cmdSysInfo_Click", [&] { StartSysInfo(); });
}

void frmAbout::StartSysInfo() {
  Guard::Top(u"StartSysInfo", [] {
    constexpr auto kRoot = RegistryRoot::LocalMachine;
    Text path;
    if (GetKeyValue(kRoot, u"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", u"PATH", path)) {
      Shell().Run(path);
      return;
    }
    if (GetKeyValue(kRoot, u"SOFTWARE\\Microsoft\\Shared Tools Location", u"MSINFO", path)) {
      const Text program = path + u"\\MSINFO32.EXE";
      if (ExistFileDir(program)) {
        Shell().Run(program);
        return;
      }
    }
    MsgBox(u"System Information Is Unavailable At This Time");
  });
}

void frmAbout::cmdOK_Click() {
  Guard::Top(u"cmdOK_Click", [&] { Unload(); });
}

}  // namespace brelmon
