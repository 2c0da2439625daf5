// SPDX-License-Identifier: GPL-2.0-or-later
// Adds the extent of the active view to QuickLoad.txt as a bookmark.
#pragma once

#include "frame/command.h"

namespace brelmon {

class cmdQLAddSpatial : public BrelmonCommand {
 public:
  cmdQLAddSpatial();
  ~cmdQLAddSpatial() override;
  void OnClick() override;
};

}  // namespace brelmon
