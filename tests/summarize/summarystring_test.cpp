// SPDX-License-Identifier: GPL-2.0-or-later
// The terms that the dissolve is asked for.
#include "summarize/summarystring.h"

#include <gtest/gtest.h>

namespace brelmon::test {
namespace {

TEST(SummaryStringTest, ByTickedStatistics) {
  const struct {
    std::vector<SummaryTerm> terms;
    std::string expected;
  } rows[] = {
      {{}, "Minimum.NET, Count.NET"},
      {{{Statistic::First, u"NAME"}, {Statistic::Last, u"WHEN_"}},
       "Minimum.NET, Count.NET, Minimum.NAME, Maximum.WHEN_"},
      {{{Statistic::Minimum, u"A"},
        {Statistic::Maximum, u"A"},
        {Statistic::Average, u"A"},
        {Statistic::Sum, u"A"},
        {Statistic::StandardDeviation, u"A"},
        {Statistic::Variance, u"A"}},
       "Minimum.NET, Count.NET, Minimum.A, Maximum.A, Average.A, Sum.A, StdDev.A, Variance.A"},
  };
  for (const auto& row : rows) EXPECT_EQ(ToUtf8(SummaryString(u"NET", row.terms)), row.expected);
}

}  // namespace
}  // namespace brelmon::test
