// SPDX-License-Identifier: GPL-2.0-or-later
// The wrappers that only run a command of the host.
#include "layertools/hostcommand.h"

namespace brelmon {

HostCommand::HostCommand(TextView className, TextView identifier, const char* file)
    : BrelmonCommand(className, Guarded::Yes, file), identifier_(identifier), file_(file) {}

void HostCommand::OnClick() {
  Guard::Top(
      u"ICommand_OnClick",
      [&] {
        const auto uid = New<UID>(Text(identifier_));
        m_pApp->Document()->CommandBars()->Find(uid)->Execute();
      },
      file_);
}

}  // namespace brelmon
