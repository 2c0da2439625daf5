// SPDX-License-Identifier: GPL-2.0-or-later
// Layer files of the module, and the dialogs that choose files, which a page doesn't have.
#pragma once

#include "hosts/web/items.h"
#include "platform/windows.h"

namespace brelmon::web {

/// What layer files are looked up in; it must outlive the objects.
struct Catalog {
  std::string folder;  // the module's system path
  std::vector<LayerFile> layerFiles;
  Sources sources;
};

Ref<IGxLayer> NewGxLayer(const Catalog& catalog);
/// Fails with 445 when it is to be shown.
Ref<IGxDialog> NewGxDialog();

}  // namespace brelmon::web
