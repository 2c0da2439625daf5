// SPDX-License-Identifier: GPL-2.0-or-later
// How the component enters its classes into the host's registry.
#include "component/registration.h"

#include "component/classes.h"
#include "frame/commandtable.h"
#include "frame/version.h"
#include "platform/services.h"

namespace brelmon {

void RegisterClasses(const Text& libraryPath) {
  for (const ClassEntry& entry : Classes()) {
    const Text progId = ProgIdOf(entry.Name);
    const Text classId = ToText(entry.Id);
    const auto write = [](const Text& key, const Text& value) {
      Registry().Write(RegistryRoot::ClassesRoot, key, {}, value);
    };
    write(progId, progId);
    write(progId + u"\\CLSID", classId);
    write(u"CLSID\\" + classId, progId);
    write(u"CLSID\\" + classId + u"\\ProgID", progId);
    write(u"CLSID\\" + classId + u"\\InprocServer32", libraryPath);
    write(u"CLSID\\" + classId + u"\\Version", Text(kFileVersion));
  }
}

void UnregisterClasses() {
  for (const ClassEntry& entry : Classes()) {
    Registry().DeleteTree(RegistryRoot::ClassesRoot, ProgIdOf(entry.Name));
    Registry().DeleteTree(RegistryRoot::ClassesRoot, u"CLSID\\" + ToText(entry.Id));
  }
}

}  // namespace brelmon
