// SPDX-License-Identifier: GPL-2.0-or-later
// The document's directory out of the application's templates.
#include "util/documentdirectory.h"

#include "frame/guard.h"
#include "util/aml_func_mod.h"

namespace brelmon {

Text GetPath(const Ref<IApplication>& application) {
  return Guard::Top(u"GetPath", [&] {
    const auto pTemplates = application->Templates();
    return pTemplates->Item(pTemplates->Count() - 1);
  });
}

Text DocumentDirectory(const Ref<IApplication>& application) {
  return ReturnDir(GetFullFileString(GetPath(application)));
}

}  // namespace brelmon
