// SPDX-License-Identifier: GPL-2.0-or-later
#include "util/fieldenclosure.h"

#include <gtest/gtest.h>

namespace brelmon {
namespace {

TEST(FieldEnclosure, BySourceText) {
  const struct {
    const char16_t* source;
    Text open, close;
  } rows[] = {
      {u"Personal Geodatabase Feature Class", u"[", u"]"},
      {u"personal geodatabase feature class", u"[", u"]"},
      {u"SDE Feature Class", u"", u""},
      {u"Personal Geodatabase over SDE", u"[", u"]"},
      {u"IMS Feature Class", u"", u""},
      {u"sde feature class", u"\"", u"\""},
      {u"ims", u"\"", u"\""},
      {u"Shapefile Feature Class", u"\"", u"\""},
      {u"", u"\"", u"\""},
  };
  for (const auto& row : rows) {
    const auto [open, close] = EnclosureFor(row.source);
    EXPECT_EQ(open, row.open) << ToUtf8(row.source);
    EXPECT_EQ(close, row.close) << ToUtf8(row.source);
  }
}

}  // namespace
}  // namespace brelmon
