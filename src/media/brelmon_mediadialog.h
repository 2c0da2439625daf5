// SPDX-License-Identifier: GPL-2.0-or-later
// The media viewer: lists a module's media by kind and opens them with their default programs.
#pragma once

#include <array>
#include <memory>
#include <vector>

#include "forms/AnchorObjectList.h"
#include "media/MediaList.h"
#include "platform/collection.h"
#include "platform/map.h"
#include "toolkit/controls.h"

namespace brelmon {

/// Stays open after an item was opened. Set both properties before it is shown.
class brelmon_MediaDialog : public Form {
 public:
  brelmon_MediaDialog();

  ListBox lbxAll{*this, u"lbxAll"};
  Frame cpOptions{*this, u"cpOptions"};
  OptionButton optAll{*this, u"optAll"};
  OptionButton optMovies{*this, u"optMovies"};
  OptionButton optImages{*this, u"optImages"};
  OptionButton optWebsites{*this, u"optWebsites"};
  OptionButton optText{*this, u"optText"};
  OptionButton optExcels{*this, u"optExcels"};
  OptionButton optWords{*this, u"optWords"};
  OptionButton optPDFs{*this, u"optPDFs"};
  OptionButton optPowerpoints{*this, u"optPowerpoints"};
  CommandButton cmdOK{*this, u"cmdOK"};
  CommandButton cmdCancel{*this, u"cmdCancel"};
  PictureBox imgCornerBars{*this, u"imgCornerBars"};

  void ArcApplication(const Ref<IApplication>& theApplication);
  /// "Filename" is the list's full path, "prjFilename" the document directory.
  void MediaFilename(const Collection<Text>& theMediaFilename);
  /// Hands a file or web address to its default program. One that has none fails silently.
  void OpenDoc(const Text& file, const Text& directory);

 protected:
  void Design() override;
  void Form_Load() override;
  void Form_Unload() override;

 private:
  struct Entry {
    Text Location;
    Text Label;  // for an item chosen from this store
  };
  /// Items by the text of their row, and the rows in the order of the list.
  struct Store {
    Collection<Entry> Items;
    std::vector<Text> Rows;
    void Add(Entry entry, const Text& row);
  };
  /// All media, then each kind by its code.
  static constexpr std::size_t kAll = 0;
  static std::size_t StoreOf(std::int32_t code) { return static_cast<std::size_t>(code) + 1; }
  struct Option {
    OptionButton* Button;
    std::size_t Store;
    const char16_t* Caption;
    const char16_t* Handler;
  };

  void ReadList();
  void Enter(const MediaItem& item, Text& label);
  void SortLists();
  void Option_Click(const Option& option);
  void lbxAll_Click();
  void lbxAll_DblClick();
  void cmdOK_Click();
  void cmdCancel_Click();

  const std::array<Option, 9> m_Options;  // in the order in which they are asked
  Ref<IApplication> m_pApp;
  Ref<IMxDocument> m_pMxDoc;
  Text m_ListFile, m_DocumentDirectory;
  std::array<Store, kMediaKinds.size() + 1> m_Stores;
  Text m_ChosenLocation, m_ChosenLabel;
  std::unique_ptr<AnchorObjectList> m_pAnchors;
};

}  // namespace brelmon
