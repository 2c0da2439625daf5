// SPDX-License-Identifier: GPL-2.0-or-later
// Words of the terms, and how they are joined.
#include "summarize/summarystring.h"

#include "platform/failure.h"
#include "util/aml_func_mod.h"

namespace brelmon {
namespace {

TextView WordOf(const Text& statistic) {
  static constexpr struct {
    TextView Statistic, Word;
  } kWords[] = {
      {u"Minimum", u"Minimum"}, {u"Maximum", u"Maximum"},   {u"Average", u"Average"},
      {u"Sum", u"Sum"},         {u"Variance", u"Variance"}, {u"Standard Deviation", u"StdDev"},
      {u"First", u"Minimum"},   {u"Last", u"Maximum"},
  };
  for (const auto& each : kWords) {
    if (statistic == each.Statistic) return each.Word;
  }
  Raise(failure::kInvalidCall);
}

}  // namespace

Text SummaryString(const Text& field, const std::vector<SummaryTerm>& terms) {
  Text summary = u"Minimum." + field + u", Count." + field + u", ";
  for (const SummaryTerm& term : terms) {
    summary += Text(WordOf(term.Statistic)) + u"." + term.Field + u", ";
  }
  return BasicTrimAvenue(summary, {}, u", ");
}

}  // namespace brelmon
