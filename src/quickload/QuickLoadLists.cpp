// SPDX-License-Identifier: GPL-2.0-or-later
// Records sorted into the lists of the QuickLoad dialog.
#include "quickload/QuickLoadLists.h"

#include "quickload/QuickLoadFile.h"
#include "quickload/brelmon_quickjumpdialog.h"

namespace brelmon {

QuickLoadLists QuickLoadLists::Read(const Text& path, const Ref<IMxDocument>& document) {
  QuickLoadLists lists;
  for (auto& record : QuickLoadFile::Read(path)) {
    auto& fields = record.Fields;
    switch (record.Is) {
      case QuickLoadRecord::Kind::Layer:
        lists.LayerNames.push_back(std::move(fields[0]));
        lists.LayerPaths.push_back(std::move(fields[1]));
        break;
      case QuickLoadRecord::Kind::Query:
        lists.QueryNames.push_back(std::move(fields[0]));
        lists.QueryStrings.push_back(std::move(fields[1]));
        break;
      case QuickLoadRecord::Kind::Bookmark:
        lists.BookmarkNames.push_back(std::move(fields[0]));
        fields.erase(fields.begin());
        lists.BookmarkCoordinates.push_back(std::move(fields));
        break;
    }
  }
  const auto pMaps = document->Maps();
  for (std::int32_t index = 0; index < pMaps->Count(); ++index) {
    lists.DataFrameNames.push_back(pMaps->Item(index)->Name());
  }
  return lists;
}

void QuickLoadLists::GiveTo(brelmon_QuickJumpDialog& dialog) const {
  dialog.strMapFrames(DataFrameNames);
  dialog.strBookmarks(BookmarkNames);
  dialog.strQueries(QueryNames);
  dialog.strLayers(LayerNames);
}

}  // namespace brelmon
