// SPDX-License-Identifier: GPL-2.0-or-later
// Fields of a source as the platform's objects.
#pragma once

#include "hosts/columns/rows.h"

namespace brelmon::document {

/// The field at an index from 0; out of bounds fails with 9.
const columns::Field& FieldAt(const columns::IRowSource& source, std::int32_t index);

Ref<IField> NewField(const columns::Field& field);
Ref<IFieldInfo> NewFieldInfo(Text alias, bool visible);
Ref<IFields> NewFields(std::shared_ptr<columns::IRowSource> source);

}  // namespace brelmon::document
