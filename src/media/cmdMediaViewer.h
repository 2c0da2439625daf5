// SPDX-License-Identifier: GPL-2.0-or-later
// Opens the media viewer on the list beside the map document.
#pragma once

#include "frame/command.h"

namespace brelmon {

class cmdMediaViewer : public BrelmonCommand {
 public:
  cmdMediaViewer();
  ~cmdMediaViewer() override;
  void OnClick() override;
};

}  // namespace brelmon
