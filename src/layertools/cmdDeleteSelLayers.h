// SPDX-License-Identifier: GPL-2.0-or-later
// Removes the active themes from the document after one confirmation.
#pragma once

#include "frame/command.h"

namespace brelmon {

class cmdDeleteSelLayers : public BrelmonCommand {
 public:
  cmdDeleteSelLayers();
  void OnClick() override;

 private:
  void DeleteMap(const Ref<IMap>& map);
  void DeleteTable(const Ref<IStandaloneTable>& table);
  void DeleteLayer(const Ref<ILayer>& layer);
};

}  // namespace brelmon
