// SPDX-License-Identifier: GPL-2.0-or-later
// A test that runs inside QGIS: a library of its own, which the environment names.
#pragma once

#include <vector>

#include "hosts/qgis/document/graphics.h"
#include "platform/application.h"
#include "platform/services.h"

class QgisInterface;

namespace brelmon::host {
class Component;
}

namespace brelmon::qgis {

/// What a test may reach of the plug-in.
struct TestAccess {
  QgisInterface* iface;
  host::Component* component;
  Ref<IApplication> application;
  Services services;
  void (*selectGraphics)(std::vector<GraphicId>);
  void (*inTurn)(const std::function<void()>& deed);  // as a click of the user
  std::function<void()> unload;  // what the plug-in manager does; all else here is gone then
};

/// The library's one export, `extern "C" void brelmon_test_run(const TestAccess&)`.
using TestEntry = void (*)(const TestAccess&);

/// Runs the library that BRELMON_TEST_DRIVER names, if it is set. It ends QGIS by itself.
void RunTestDriver(const TestAccess& access);

}  // namespace brelmon::qgis
