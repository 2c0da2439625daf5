// SPDX-License-Identifier: GPL-2.0-or-later
// Attribute table windows on the page.
#pragma once

#include <vector>

#include "hosts/web/items.h"
#include "platform/windows.h"

namespace brelmon::web {

/// The windows that have been shown and not unloaded; each has a name of its own for the page.
class TableWindows {
 public:
  TableWindows();
  ~TableWindows();
  /// Bound to nothing; it offers ITableWindow2 too.
  Ref<ITableWindow> NewWindow();
  /// The item of the window of that name; unset if there is none.
  Ref<IObject> ItemOf(int name) const;
  /// A student closes it.
  void Close(int name);

 private:
  class List;
  class Window;
  std::shared_ptr<List> list_;
};

}  // namespace brelmon::web
