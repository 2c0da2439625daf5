// SPDX-License-Identifier: GPL-2.0-or-later
// A module as the open document.
#pragma once

#include "hosts/document/document.h"
#include "hosts/web/items.h"

namespace brelmon::web {

struct DocumentListener {
  std::function<void()> changed;      // anything that the page shows
  std::function<void(int id)> moved;  // a tool has moved a frame's view
};

/// Makes every item of the module. `commands` gives the host's own commands, unset for none.
Ref<IMxDocument> OpenDocument(const Module& module, const Sources& sources,
                              std::function<Ref<ICommandItem>(const Text&)> commands,
                              DocumentListener listener);

}  // namespace brelmon::web
