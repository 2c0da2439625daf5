// SPDX-License-Identifier: GPL-2.0-or-later
// The command "Select All Features".
#pragma once

#include "frame/command.h"

namespace brelmon {

class cmdSelectAll : public BrelmonCommand {
 public:
  cmdSelectAll();
  void OnClick() override;
};

}  // namespace brelmon
