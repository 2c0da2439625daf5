// SPDX-License-Identifier: GPL-2.0-or-later
// Words of the terms, and how they are joined.
#include "summarize/summarystring.h"

#include "util/aml_func_mod.h"

namespace brelmon {
namespace {

constexpr std::size_t kNumeric = 6;
constexpr StatisticWords kWords[] = {
    {Statistic::Minimum, u"Minimum", u"Minimum"},
    {Statistic::Maximum, u"Maximum", u"Maximum"},
    {Statistic::Average, u"Average", u"Average"},
    {Statistic::Sum, u"Sum", u"Sum"},
    {Statistic::StandardDeviation, u"Standard Deviation", u"StdDev"},
    {Statistic::Variance, u"Variance", u"Variance"},
    {Statistic::First, u"First", u"Minimum"},
    {Statistic::Last, u"Last", u"Maximum"},
};

}  // namespace

std::span<const StatisticWords> StatisticsOf(bool numeric) {
  const std::span all(kWords);
  return numeric ? all.first(kNumeric) : all.subspan(kNumeric);
}

Text SummaryString(const Text& field, const std::vector<SummaryTerm>& terms) {
  Text summary = u"Minimum." + field + u", Count." + field + u", ";
  for (const SummaryTerm& term : terms) {
    summary += Text(kWords[static_cast<std::size_t>(term.Is)].Word) + u"." + term.Field + u", ";
  }
  return BasicTrimAvenue(summary, {}, u", ");
}

}  // namespace brelmon
