// SPDX-License-Identifier: GPL-2.0-or-later
// Selects every feature of the active themes.
#include "layertools/cmdSelectAll.h"

#include "layertools/selectactive.h"

namespace brelmon {

cmdSelectAll::cmdSelectAll() : BrelmonCommand(u"cmdSelectAll") {}

void cmdSelectAll::OnClick() {
  Guard::PlainBox([&] {
    SelectActive(m_pMxDoc, SelectionMethod::New,
                 {u"layer.  Unable to set selection...", u"table.  Unable to set selection..."});
  });
}

}  // namespace brelmon
