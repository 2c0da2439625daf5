// SPDX-License-Identifier: GPL-2.0-or-later
// The host's own summarize dialog, opened on the field a user is likeliest to group by.
#pragma once

#include "frame/command.h"

namespace brelmon {

class cmdSummarize : public BrelmonCommand {
 public:
  cmdSummarize();
  ~cmdSummarize() override;
  void OnClick() override;
};

}  // namespace brelmon
