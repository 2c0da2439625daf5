// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/columns/querytokens.h"

#include <gtest/gtest.h>

namespace brelmon::columns {
namespace {

/// The names with blanks between.
std::string Names(TextView clause) {
  std::string names;
  for (const Text& name : NamesIn(clause).fields)
    names += (names.empty() ? "" : " ") + ToUtf8(name);
  return names;
}

TEST(QueryTokens, FindTheFields) {
  struct Row {
    const char16_t* clause;
    const char* names;
  };
  for (const Row& row : {
           Row{u"\"MAG\" >= 5.5 AND [DEPTH KM] < 1e-3", "MAG DEPTH KM"},
           Row{u"mag Between .5 and 0x1F or not NET is null", "mag NET"},
           Row{u"\"say \"\"so\"\"\" = 'it''s \"quoted\" (not) [here]'", "say \"so\""},
           Row{u"`odd` LIKE '%x' ESCAPE '\\'", "odd"},
           Row{u"UPPER(name) IN ('A', 'B') AND length( \"PLACE\" ) > 3", "name PLACE"},
           Row{u"\"quakes\".\"MAG\" = t.depth", "MAG depth"},
           Row{u"CAST(a AS integer) = b COLLATE nocase", "a b"},
           Row{u"CASE WHEN x THEN TRUE ELSE false END", "x"},
           Row{u"bytes = X'00FF' OR day > DATE '2020-01-01'", "bytes day"},
           Row{u"id IN (SELECT other FROM \"t\" WHERE (\"z\" = 1)) AND last", "id last"},
           Row{u"a /* \"not this\" */ = 1", "a"},
           Row{u"H\u00F6he > 1", "H\xC3\xB6he"},
           Row{u"1 = 1", ""},
           Row{u"(  )", ""},
       }) {
    EXPECT_EQ(Names(row.clause), row.names) << ToUtf8(row.clause);
    EXPECT_EQ(NamesIn(row.clause).fault, "") << ToUtf8(row.clause);
  }
}

TEST(QueryTokens, SeeWhatCannotStandByItself) {
  for (const char16_t* clause :
       {u"a = 1) OR (b = 2",
        u"((a = 1)",
        u"a = 'x",
        u"\"a = 1",
        u"[a = 1",
        u"a = 1; DROP TABLE t",
        u"'O'Brien'",
        u"a = 1 LIMIT 1",
        u"a = 1 ORDER BY a",
        u"load_extension('x') = 1",
        u"a IN (SELECT readfile('/etc/x'))",
        u"\"ogr_geocode\"(a) IS NULL",
        u"a = 1 UNION SELECT 1",
        u"\"LIKE\"(a)",
        u"CAST(a AS boolean) = 1",
        u"printf('%999999999d', a) = 'x'",
        u"format('%.*c', a, 'x') = 'x'",
        u"0 < (SELECT count(*) FROM sqlite_master)",
        u"a IN (SELECT file FROM \"Pragma_database_list\")",
        u"a IN (SELECT x FROM 'dbstat')",
        u"a IN (SELECT name FROM main.[sqlite_schema])",
        u"a IN (SELECT x FROM (WITH RECURSIVE c(x) AS (SELECT 1) SELECT x FROM c))"}) {
    EXPECT_NE(NamesIn(clause).fault, "") << ToUtf8(clause);
  }
  EXPECT_EQ(NamesIn(u"a = ');('").fault, "");
  EXPECT_EQ(NamesIn(u"/*").fault, "");
  EXPECT_EQ(NamesIn(u"a IN (SELECT max(b) FROM t ORDER BY c LIMIT 1) AND (x) AND NOT (y)").fault,
            "");
}

}  // namespace
}  // namespace brelmon::columns
