// SPDX-License-Identifier: GPL-2.0-or-later
// Terms of a summary and the names of their columns.
#pragma once

#include "hosts/columns/dissolve.h"

namespace brelmon::columns {

enum class Statistic { Count, Minimum, Maximum, Average, Sum, Variance, StdDev };

struct DissolveTerm {
  Statistic Of;
  std::size_t Source;  // index in the source's fields
  std::string Column;  // at most ten bytes, unique regardless of case
};

/// Index of the field of that name, to the letter or else regardless of case; fails with 5.
std::size_t FieldNamed(const std::vector<Field>& fields, std::string_view name);

/// Fails as Dissolve does.
std::vector<DissolveTerm> ParseTerms(std::string_view summary, const std::vector<Field>& fields);

}  // namespace brelmon::columns
