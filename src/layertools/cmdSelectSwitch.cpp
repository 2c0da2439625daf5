// SPDX-License-Identifier: GPL-2.0-or-later
// Swaps selected and unselected features of the active themes.
#include "layertools/cmdSelectSwitch.h"

#include "layertools/selectactive.h"

namespace brelmon {

cmdSelectSwitch::cmdSelectSwitch() : BrelmonCommand(u"cmdSelectSwitch") {}

void cmdSelectSwitch::OnClick() {
  Guard::PlainBox([&] {
    SelectActive(
        m_pMxDoc, SelectionMethod::Xor,
        {u"layer.  Unable to switch selection...", u"table.  Unable to switch selection..."});
  });
}

}  // namespace brelmon
