// SPDX-License-Identifier: GPL-2.0-or-later
// Shows the About box.
#pragma once

#include "frame/command.h"

namespace brelmon {

class cmdAbout : public BrelmonCommand {
 public:
  cmdAbout();
  ~cmdAbout() override;
  void OnClick() override;
};

}  // namespace brelmon
