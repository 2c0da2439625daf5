// SPDX-License-Identifier: GPL-2.0-or-later
// Stores, lists and the opening of media.
#include "media/brelmon_mediadialog.h"

#include "forms/pictures.h"
#include "frame/guard.h"
#include "platform/services.h"
#include "platform/textfile.h"
#include "util/QuickSortNonCase.h"
#include "util/aml_func_mod.h"

namespace brelmon {
namespace {

constexpr std::int32_t kFileNumber = 1;

}  // namespace

void brelmon_MediaDialog::Store::Add(Entry entry, const Text& row) {
  Items.Add(std::move(entry), row);
  Rows.push_back(row);
}

brelmon_MediaDialog::brelmon_MediaDialog()
    : Form(u"brelmon_MediaDialog"),
      m_Options{{{&optAll, kAll, u"All Media", u"optAll_Click"},
                 {&optImages, StoreOf(1), u"Images", u"optImages_Click"},
                 {&optMovies, StoreOf(2), u"Movies", u"optMovies_Click"},
                 {&optWebsites, StoreOf(3), u"Websites", u"optWebsites_Click"},
                 {&optText, StoreOf(0), u"Google Earth Sites", u"optText_Click"},
                 {&optExcels, StoreOf(4), u"Excel Files", u"optExcels_Click"},
                 {&optWords, StoreOf(5), u"Word Files", u"optWords_Click"},
                 {&optPDFs, StoreOf(6), u"PDF Files", u"optPDFs_Click"},
                 {&optPowerpoints, StoreOf(7), u"PowerPoint", u"optPowerpoints_Click"}}} {
  for (const Option& option : m_Options) {
    option.Button->Click = [this, &option] { Option_Click(option); };
  }
  lbxAll.Click = [this] { lbxAll_Click(); };
  lbxAll.DblClick = [this] { lbxAll_DblClick(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
}

void brelmon_MediaDialog::ArcApplication(const Ref<IApplication>& theApplication) {
  Guard::Top(u"ArcApplication", [&] {
    m_pApp = theApplication;
    m_pMxDoc = m_pApp->Document().As<IMxDocument>();
  });
}

void brelmon_MediaDialog::MediaFilename(const Collection<Text>& theMediaFilename) {
  Guard::Top(u"MediaFilename", [&] {
    m_ListFile = theMediaFilename.Item(u"Filename");
    m_DocumentDirectory = theMediaFilename.Item(u"prjFilename");
  });
}

void brelmon_MediaDialog::Design() {
  Form::Design(u"Media Viewer", 6420, 5415, true);
  lbxAll.SetToolTipText(u"Media of the chosen kind");
  lbxAll.Move(120, 120, 6180, 3120);
  cpOptions.SetToolTipText(u"Kinds of media");
  cpOptions.Move(120, 3360, 6180, 1440);
  // Three columns, filled from the top in the order in which the buttons stand in the form.
  OptionButton* const columns[3][3] = {{&optAll, &optMovies, &optImages},
                                       {&optWebsites, &optText, &optExcels},
                                       {&optWords, &optPDFs, &optPowerpoints}};
  for (int column = 0; column < 3; ++column) {
    for (int row = 0; row < 3; ++row) {
      OptionButton& button = *columns[column][row];
      button.SetContainer(cpOptions);
      button.Move(180.0F + 2010.0F * column, 240.0F + 375.0F * row, 1950, 255);
    }
  }
  for (const Option& option : m_Options) option.Button->SetCaption(option.Caption);
  cmdOK.SetCaption(u"OK");
  cmdOK.SetDefault(true);
  cmdOK.SetEnabled(false);
  cmdOK.Move(120, 4920, 1215, 375);
  cmdCancel.SetCaption(u"Cancel");
  cmdCancel.SetCancel(true);
  cmdCancel.Move(1455, 4920, 1215, 375);
  imgCornerBars.SetPicture(CornerBars());
  imgCornerBars.Move(6195, 5190, 225, 225);
}

void brelmon_MediaDialog::Form_Load() {
  Guard::Top(u"Form_Load", [&] {
    m_pAnchors = std::make_unique<AnchorObjectList>();
    m_pAnchors->Item(lbxAll)->SetAnchors(AnchorStretch, AnchorStretch);
    m_pAnchors->Item(cmdOK)->SetAnchors(AnchorFixed, AnchorFarEdge);
    m_pAnchors->Item(cmdCancel)->SetAnchors(AnchorFixed, AnchorFarEdge);
    m_pAnchors->Item(cpOptions)->SetAnchors(AnchorStretch, AnchorFarEdge);
    m_pAnchors->Item(imgCornerBars)->SetAnchors(AnchorFarEdge, AnchorFarEdge);
    m_pAnchors->SetForm(*this);
    ReadList();
    SortLists();
    optAll.SetValue(true);
  });
}

/// A failure leaves the file number taken, the lists as far as they were read.
void brelmon_MediaDialog::ReadList() {
  textfile::Open(kFileNumber, m_ListFile, FileMode::Input);
  MediaListReader reader(kFileNumber, m_DocumentDirectory);
  Text label;  // an item of no known kind takes that of the item before
  while (const auto item = reader.Next()) Enter(*item, label);
  textfile::Close(kFileNumber);
}

void brelmon_MediaDialog::Enter(const MediaItem& item, Text& label) {
  if (const MediaKind* kind = MediaKindOf(item.Code)) {
    m_Stores[StoreOf(item.Code)].Add({item.Location, Text(kind->OwnLabel)}, item.Name);
  }
  const Text row = AllMediaRow(item, label);
  m_Stores[kAll].Add({item.Location, label}, row);
}

void brelmon_MediaDialog::SortLists() {
  // Images twice and presentations never: authors rely on the order of their slides.
  const std::size_t order[] = {kAll,       StoreOf(1), StoreOf(1), StoreOf(2), StoreOf(3),
                               StoreOf(0), StoreOf(4), StoreOf(5), StoreOf(6)};
  for (const std::size_t each : order) {
    Store& store = m_Stores[each];
    if (store.Items.Count() > 1) StringsAscending(store.Rows, 0, store.Items.Count() - 1);
  }
}

void brelmon_MediaDialog::Option_Click(const Option& option) {
  Guard::Top(option.Handler, [&] {
    lbxAll.Clear();
    for (const Text& row : m_Stores[option.Store].Rows) lbxAll.AddItem(row);
    cmdOK.SetEnabled(false);
  });
}

void brelmon_MediaDialog::lbxAll_Click() {
  Guard::Top(u"lbxAll_Click", [&] {
    if (lbxAll.ListIndex() == -1) return;
    for (const Option& option : m_Options) {
      if (!option.Button->Value()) continue;
      const Store& store = m_Stores[option.Store];
      const Entry& entry = store.Items.Item(At(store.Rows, lbxAll.ListIndex()));
      m_ChosenLocation = entry.Location;
      m_ChosenLabel = entry.Label;
      break;
    }
    cmdOK.SetEnabled(true);
  });
}

void brelmon_MediaDialog::lbxAll_DblClick() {
  Guard::Top(u"lbxAll_DblClick", [&] {
    if (lbxAll.ListIndex() != -1) cmdOK_Click();
  });
}

void brelmon_MediaDialog::cmdOK_Click() {
  Guard::Top(u"cmdOK_Click", [&] {
    if (m_ChosenLocation.empty()) {
      MsgBox(u"Problem identifying filename!  Unable to continue...", box::kCritical,
             u"Unable to identify filename of media file:");
      return;
    }
    if (m_ChosenLabel == u"Website" && !IsShortcutFile(m_ChosenLocation)) {
      OpenDoc(m_ChosenLocation, u"");
    } else if (!ExistFileDir(m_ChosenLocation)) {
      MsgBox(u"Unable to find the " + m_ChosenLabel + u" located at " + m_ChosenLocation +
                 u"!  Please make sure that the 'media_list.txt' "
                 u"file references media file locations relative to ArcGIS Mxd file.",
             box::kCritical, u"Unable To Find Media File:");
    } else {
      OpenDoc(ReturnFilename(m_ChosenLocation), ReturnDir(m_ChosenLocation));
    }
  });
}

void brelmon_MediaDialog::cmdCancel_Click() {
  Guard::Top(u"cmdCancel_Click", [&] { Unload(); });
}

void brelmon_MediaDialog::OpenDoc(const Text& file, const Text& directory) {
  constexpr int kNormalWindow = 1;
  Guard::Inner(u"OpenDoc", [&] { Shell().Execute(file, directory, kNormalWindow); });
}

void brelmon_MediaDialog::Form_Unload() {
  Guard::Top(u"Form_Unload", [&] {
    m_pApp.Reset();
    m_pMxDoc.Reset();
    m_ListFile.clear();
    m_DocumentDirectory.clear();
    for (Store& store : m_Stores) store = Store();
    m_ChosenLocation.clear();
    m_ChosenLabel.clear();
  });
}

}  // namespace brelmon
