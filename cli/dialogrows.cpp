// SPDX-License-Identifier: GPL-2.0-or-later
// Fields that the dialogs list.
#include "cli/dialogrows.h"

namespace brelmon::cli {

std::string WordOf(FieldType type) {
  switch (type) {
    case FieldType::SmallInteger:
      return "small integer";
    case FieldType::Integer:
      return "integer";
    case FieldType::Single:
      return "single";
    case FieldType::Double:
      return "double";
    case FieldType::String:
      return "text";
    case FieldType::Date:
      return "date";
    case FieldType::OID:
      return "object id";
    case FieldType::Geometry:
      return "geometry";
    case FieldType::Blob:
      return "blob";
  }
  return "other";
}

void RefuseUnlisted(const Field& field) {
  const std::string name = "the field \"" + ToUtf8(field.Alias) + "\"";
  if (!field.Visible) throw Refusal(name + " is hidden, so the dialog doesn't list it");
  throw Refusal(name + " is of the type " + WordOf(field.Type) + ", which the dialog doesn't list");
}

}  // namespace brelmon::cli
