// SPDX-License-Identifier: GPL-2.0-or-later
// The command "Clear Selected Features".
#pragma once

#include "frame/command.h"

namespace brelmon {

class cmdSelectNone : public BrelmonCommand {
 public:
  cmdSelectNone();
  void OnClick() override;
};

}  // namespace brelmon
