// SPDX-License-Identifier: GPL-2.0-or-later
// Rows of the tools' lists for the items and fields that a user named.
#pragma once

#include "cli/items.h"
#include "cli/userforms.h"

namespace brelmon::cli {

/// Type in words: "small integer", "text", "date", ...
std::string WordOf(FieldType type);
/// Says why a dialog has no row for the field.
[[noreturn]] void RefuseUnlisted(const Field& field);

/// The row that a list has for the field; refuses one that isn't listed.
template <class List>
std::int32_t FieldRow(List& list, const Field& field) {
  for (std::int32_t row = 0; row < list.ListCount(); ++row) {
    if (list.ItemData(row) == field.Number - 1) return row;
  }
  RefuseUnlisted(field);
}

}  // namespace brelmon::cli
