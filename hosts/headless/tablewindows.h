// SPDX-License-Identifier: GPL-2.0-or-later
// Attribute table windows: in this host, entries of a list.
#pragma once

#include <memory>
#include <ostream>
#include <vector>

#include "platform/windows.h"

namespace brelmon::headless {

/// What is known of an open window.
struct TableWindowInfo {
  Ref<ITableWindow> window;
  Ref<IObject> item;  // the layer or standalone table
  Text name;
  bool ofLayer = false;
  bool visible = false;
  std::int32_t selectionAction = 0;
  bool layerDisplay = false, tableDisplayFirst = false, tableDisplaySecond = false;
};

class TableWindows {
 public:
  TableWindows();
  ~TableWindows();
  /// Bound to nothing; it offers ITableWindow2 too and is in the list once it has been shown.
  Ref<ITableWindow> NewWindow();
  std::vector<TableWindowInfo> Open() const;
  /// A line a window: "table window: NAME (layer)".
  void Print(std::ostream& out) const;

 private:
  class List;
  std::shared_ptr<List> list_;
};

}  // namespace brelmon::headless
