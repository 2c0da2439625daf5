// SPDX-License-Identifier: GPL-2.0-or-later
// Adds a query, typed or pasted, to QuickLoad.txt.
#pragma once

#include "frame/command.h"

namespace brelmon {

class cmdQLAddQuery : public BrelmonCommand {
 public:
  cmdQLAddQuery();
  ~cmdQLAddQuery() override;
  void OnClick() override;
};

}  // namespace brelmon
