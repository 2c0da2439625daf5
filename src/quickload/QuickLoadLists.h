// SPDX-License-Identifier: GPL-2.0-or-later
// What the QuickLoad dialog offers: the file's records as parallel lists, and the data frames.
#pragma once

#include <vector>

#include "platform/map.h"

namespace brelmon {

class brelmon_QuickJumpDialog;

/// Lists in file order. A position in a list of names is the key into its partner.
struct QuickLoadLists {
  std::vector<Text> LayerNames, LayerPaths;
  std::vector<Text> QueryNames, QueryStrings;
  std::vector<Text> BookmarkNames;
  std::vector<std::vector<Text>> BookmarkCoordinates;  // XMin, YMin, XMax, YMax each
  std::vector<Text> DataFrameNames;

  /// Fails as QuickLoadFile::Read does.
  static QuickLoadLists Read(const Text& path, const Ref<IMxDocument>& document);
  /// Hands the four lists of names to a dialog.
  void GiveTo(brelmon_QuickJumpDialog& dialog) const;
};

}  // namespace brelmon
