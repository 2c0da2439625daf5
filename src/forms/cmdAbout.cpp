// SPDX-License-Identifier: GPL-2.0-or-later
// Shows the About box.
#include "forms/cmdAbout.h"

#include "forms/frmAbout.h"

namespace brelmon {

cmdAbout::cmdAbout() : BrelmonCommand(u"cmdAbout") {}

cmdAbout::~cmdAbout() {
  Terminate([&] {
    m_pApp.Reset();
    m_pMxDoc.Reset();
  });
}

void cmdAbout::OnClick() {
  Guard::PlainBox([] { New<frmAbout>()->ShowModal(); });
}

}  // namespace brelmon
