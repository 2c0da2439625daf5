// SPDX-License-Identifier: GPL-2.0-or-later
// The command "Switch Selected Features".
#pragma once

#include "frame/command.h"

namespace brelmon {

class cmdSelectSwitch : public BrelmonCommand {
 public:
  cmdSelectSwitch();
  void OnClick() override;
};

}  // namespace brelmon
