// SPDX-License-Identifier: GPL-2.0-or-later
// Brelmon Summarize: a new Summarize dialog at each click.
#pragma once

#include "frame/command.h"

namespace brelmon {

class cmdSumBrelmon : public BrelmonCommand {
 public:
  cmdSumBrelmon();
  ~cmdSumBrelmon() override;
  void OnClick() override;
};

}  // namespace brelmon
