// SPDX-License-Identifier: GPL-2.0-or-later
// The dialog that offers a module's shortcuts, one kind at a time. It does nothing but choose.
#pragma once

#include <memory>
#include <vector>

#include "forms/AnchorObjectList.h"
#include "toolkit/controls.h"

namespace brelmon {

/// Closes by hiding itself, so that option, rows and selection are there when it is shown again.
/// New lists show once an option is chosen anew.
class brelmon_QuickJumpDialog : public Form {
 public:
  brelmon_QuickJumpDialog();

  Frame cpSavedTypes{*this, u"cpSavedTypes"};
  OptionButton optViews{*this, u"optViews"};
  OptionButton optExtents{*this, u"optExtents"};
  OptionButton optLayers{*this, u"optLayers"};
  OptionButton optQueries{*this, u"optQueries"};
  ListBox lbxList{*this, u"lbxList"};
  CommandButton cmdOK{*this, u"cmdOK"};
  CommandButton cmdCancel{*this, u"cmdCancel"};
  PictureBox imgCornerBars{*this, u"imgCornerBars"};

  void strMapFrames(std::vector<Text> theMapFrames) { m_MapFrames = std::move(theMapFrames); }
  void strBookmarks(std::vector<Text> theBookmarks) { m_Bookmarks = std::move(theBookmarks); }
  void strQueries(std::vector<Text> theQueries) { m_Queries = std::move(theQueries); }
  void strLayers(std::vector<Text> theLayers) { m_Layers = std::move(theLayers); }
  /// True once the dialog was closed by OK.
  bool booShouldContinue() const { return m_ShouldContinue; }
  void booShouldContinue(bool shouldContinue) { m_ShouldContinue = shouldContinue; }

  void optViews_Click();
  void optExtents_Click();
  void optLayers_Click();
  void optQueries_Click();

 protected:
  void Design() override;
  void Form_Load() override;

 private:
  void Fill(const std::vector<Text>& names);
  void lbxList_Click();
  void lbxList_DblClick();
  void cmdOK_Click();
  void cmdCancel_Click();

  std::vector<Text> m_MapFrames, m_Bookmarks, m_Queries, m_Layers;
  bool m_ShouldContinue = false;
  std::unique_ptr<AnchorObjectList> m_pAnchors;
};

}  // namespace brelmon
