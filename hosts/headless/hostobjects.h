// SPDX-License-Identifier: GPL-2.0-or-later
// The objects that the tools make through the host.
#pragma once

#include <memory>

#include "hosts/headless/catalog.h"
#include "hosts/headless/console.h"
#include "hosts/headless/formuser.h"
#include "hosts/headless/tablewindows.h"
#include "platform/services.h"

namespace brelmon::headless {

/// Why dialogs of a desktop map aren't shown.
inline constexpr const char* kNoScreen = "there is none without a screen";

/// Where the objects leave their marks; all of it outlives them.
struct ObjectSurroundings {
  ConsoleMessageBox* boxes;
  ModelessFrames* modeless;
  TableWindows* tables;
  std::shared_ptr<CatalogAnswers> catalog;
};

std::unique_ptr<IHostObjects> NewHostObjects(ObjectSurroundings surroundings);

}  // namespace brelmon::headless
