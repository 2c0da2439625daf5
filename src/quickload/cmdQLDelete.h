// SPDX-License-Identifier: GPL-2.0-or-later
// Deletes references from a QuickLoad file.
#pragma once

#include "frame/command.h"

namespace brelmon {

class cmdQLDelete : public BrelmonCommand {
 public:
  cmdQLDelete();
  ~cmdQLDelete() override;
  void OnClick() override;
};

}  // namespace brelmon
