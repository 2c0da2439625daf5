// SPDX-License-Identifier: GPL-2.0-or-later
#include "util/fieldenclosure.h"

#include <gtest/gtest.h>

namespace brelmon {
namespace {

TEST(FieldEnclosure, BySourceText) {
  std::string all;
  for (const char16_t* source :
       {u"Personal Geodatabase Feature Class", u"Personal Geodatabase over SDE",
        u"SDE Feature Class", u"IMS Feature Class", u"sde feature class", u""}) {
    const auto [open, close] = EnclosureFor(source);
    all += ToUtf8(open + u"x" + close) + " ";
  }
  EXPECT_EQ(all, "[x] [x] x x \"x\" \"x\" ");
}

}  // namespace
}  // namespace brelmon
