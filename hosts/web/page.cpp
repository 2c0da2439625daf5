// SPDX-License-Identifier: GPL-2.0-or-later
// The two imports.
#include "hosts/web/page.h"

extern "C" {
void web_tell(const char* json);
int web_wait(int name);
}

namespace brelmon::web {

void Tell(const Json& message) { web_tell(message.Written().c_str()); }
int Wait(int name) { return web_wait(name); }
int NextName() {
  static int last = 0;
  return ++last;
}

}  // namespace brelmon::web
