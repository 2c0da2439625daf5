// SPDX-License-Identifier: GPL-2.0-or-later
// The toolbar's definition.
#pragma once

#include "platform/component.h"

namespace brelmon {

class toolBarBrelmon : public IToolBarDef {
 public:
  std::int32_t ItemCount() override;
  /// Writes nothing for a position that the bar doesn't have.
  void GetItemInfo(std::int32_t pos, const Ref<IItemDef>& itemDef) override;
  Text Name() override;
  Text Caption() override;
};

}  // namespace brelmon
