// SPDX-License-Identifier: GPL-2.0-or-later
// Adds layer files that lie in the module's folder to QuickLoad.txt.
#pragma once

#include "frame/command.h"

namespace brelmon {

class cmdQLAddLayer : public BrelmonCommand {
 public:
  cmdQLAddLayer();
  ~cmdQLAddLayer() override;
  void OnClick() override;
};

}  // namespace brelmon
