// SPDX-License-Identifier: GPL-2.0-or-later
// Rows of the tools' lists for the items and fields that a user named.
#pragma once

#include "cli/items.h"
#include "cli/userforms.h"

namespace brelmon::cli {

/// Which fields a dialog lists: visible ones of the types up to that one.
enum class Listed : std::int32_t {
  Numeric = static_cast<std::int32_t>(FieldType::Double),
  UpToDates = static_cast<std::int32_t>(FieldType::Date),
  UpToIds = static_cast<std::int32_t>(FieldType::OID),
};

/// How many listed fields before it have `field`'s alias; refuses a field that isn't listed.
int OccurrenceListed(const std::vector<Field>& fields, const Field& field, Listed listed);
/// Type in words: "small integer", "text", "date", ...
std::string WordOf(FieldType type);

template <class List>
std::int32_t FieldRow(List& list, const std::vector<Field>& fields, const Field& field,
                      Listed listed) {
  const std::int32_t row = RowOf(list, field.Alias, OccurrenceListed(fields, field, listed));
  if (row < 0) throw Refusal("the dialog doesn't list \"" + ToUtf8(field.Alias) + "\"");
  return row;
}

template <class List>
std::int32_t ItemRow(List& list, headless::HeadlessHost& host, const Item& item) {
  const std::int32_t row = RowOf(list, item.Name, OccurrenceOnOffer(host, item));
  if (row < 0) throw Refusal("the dialog doesn't list \"" + ToUtf8(item.Name) + "\"");
  return row;
}

}  // namespace brelmon::cli
