// SPDX-License-Identifier: GPL-2.0-or-later
// Fields of a source as the platform's objects.
#pragma once

#include "hosts/data/tablesource.h"

namespace brelmon::headless {

Ref<IField> NewField(const columns::Field& field);
Ref<IFieldInfo> NewFieldInfo(Text alias, bool visible);
Ref<IFields> NewFields(std::shared_ptr<data::TableSource> source);

/// The source's field at an index from 0; out of bounds fails with 9.
const columns::Field& FieldAt(const data::TableSource& source, std::int32_t index);

}  // namespace brelmon::headless
