// SPDX-License-Identifier: GPL-2.0-or-later
// QuickLoad: jumps to the data frames, bookmarks, layers and queries that an author prepared.
#pragma once

#include "frame/command.h"
#include "quickload/QuickLoadLists.h"
#include "quickload/brelmon_quickjumpdialog.h"

namespace brelmon {

class cmdQuickLoad : public BrelmonCommand {
 public:
  cmdQuickLoad();
  ~cmdQuickLoad() override;
  void OnClick() override;

 protected:
  void Created() override;

 private:
  void GoToDataFrame(std::int32_t index);
  void GoToBookmark(const std::vector<Text>& coordinates, const Ref<IActiveView>& view);
  void AddLayer(const Text& path, const Text& name, const Ref<IActiveView>& view);

  Ref<brelmon_QuickJumpDialog> m_pDialog;  // kept between clicks
};

}  // namespace brelmon
