// SPDX-License-Identifier: GPL-2.0-or-later
// Loading a test driver.
#include "hosts/qgis/plugin/testdriver.h"

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>

namespace brelmon::qgis {

void RunTestDriver(const TestAccess& access) {
  const char* path = std::getenv("BRELMON_TEST_DRIVER");
  if (!path || !*path) return;
  void* library = ::dlopen(path, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  void* entry = library ? ::dlsym(library, "brelmon_test_run") : nullptr;
  if (!entry) {
    std::fprintf(stderr, "can't run the test driver: %s\n", ::dlerror());
    std::_Exit(2);
  }
  reinterpret_cast<TestEntry>(entry)(access);
}

}  // namespace brelmon::qgis
