// SPDX-License-Identifier: GPL-2.0-or-later
// The one session that runs.
#include "hosts/qgis/session.h"

#include "hosts/common/hostfailure.h"

namespace brelmon::qgis {
namespace {

Session* running = nullptr;

}  // namespace

Session::Session(QgisInterface& iface) : iface_(iface) { running = this; }

Session::~Session() {
  while (!parts_.empty()) parts_.pop_back();
  running = nullptr;
}

Session& Session::Running() {
  if (!running) host::Fail(failure::kObjectNotSet);
  return *running;
}

Session* Session::IfRunning() { return running; }

}  // namespace brelmon::qgis
