// SPDX-License-Identifier: GPL-2.0-or-later
// Fields of a source in the tools' terms. Indices out of bounds fail with 9.
#pragma once

#include "hosts/web/source.h"
#include "platform/table.h"

namespace brelmon::web {

Ref<IField> NewField(const std::vector<columns::Field>& fields, std::int32_t index);
/// As `item` shows it.
Ref<IFieldInfo> NewFieldInfo(const std::vector<columns::Field>& fields, std::int32_t index,
                             const ModuleItem& item);
Ref<IFields> NewFields(std::shared_ptr<Source> source);

}  // namespace brelmon::web
