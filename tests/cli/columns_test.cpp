// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/columns.h"

#include <gtest/gtest.h>

#include <sstream>

namespace brelmon::cli {
namespace {

TEST(Columns, AlignByCharactersAndDropTrailingBlanks) {
  Columns columns({">no", "name", "filter"});
  columns.Add({"1", "Écueils", "A\r\nB"});
  columns.Add({"12", "x"});
  std::ostringstream out;
  columns.Print(out);
  EXPECT_EQ(out.str(),
            "no  name     filter\n"
            " 1  Écueils  A B\n"
            "12  x\n");
}

}  // namespace
}  // namespace brelmon::cli
