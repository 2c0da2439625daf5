// SPDX-License-Identifier: GPL-2.0-or-later
// Kept for the process, like the failure that it explains.
#include "hosts/columns/emptyvalue.h"

#include <optional>

#include "platform/failure.h"

namespace brelmon::columns {
namespace {

struct EmptyValue {
  Text table, field;
  std::optional<std::int64_t> record;
};

std::optional<EmptyValue> last;

}  // namespace

void NoteEmptyValue(const Text& table, const Text& field, std::optional<std::int64_t> record) {
  last = {table, field, record};
}

void ForgetEmptyValue() { last.reset(); }

Text WithEmptyValue(Text trail) {
  if (!last || trail.find(DescriptionOf(failure::kInvalidUseOfNull)) == Text::npos) return trail;
  while (!trail.empty() && (trail.back() == u'\n' || trail.back() == u'\r')) trail.pop_back();
  trail += u"\r\n\r\nThe value is empty: field " + last->field;
  if (!last->table.empty()) trail += u" of \"" + last->table + u"\"";
  if (last->record) trail += u", record " + FromUtf8(std::to_string(*last->record));
  return trail + u".";
}

}  // namespace brelmon::columns
