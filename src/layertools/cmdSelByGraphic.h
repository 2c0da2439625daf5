// SPDX-License-Identifier: GPL-2.0-or-later
// Selects in the active themes what the selected graphics touch.
#pragma once

#include "frame/command.h"

namespace brelmon {

/// The one command without guard blocks: a failure goes straight to the host.
class cmdSelByGraphic : public BrelmonCommand {
 public:
  cmdSelByGraphic();
  void OnClick() override;
};

}  // namespace brelmon
