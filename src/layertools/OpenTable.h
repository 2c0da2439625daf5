// SPDX-License-Identifier: GPL-2.0-or-later
// The command "Open Table".
#pragma once

#include "frame/command.h"

namespace brelmon {

class OpenTable : public BrelmonCommand {
 public:
  OpenTable();
  void OnClick() override;
};

}  // namespace brelmon
