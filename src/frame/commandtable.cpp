// SPDX-License-Identifier: GPL-2.0-or-later
// The table of the commands and the bar, and what must be true of their rows.
#include "frame/commandtable.h"

#include <algorithm>

#include "frame/commandrows.h"
#include "frame/version.h"

namespace brelmon {
namespace {

using rows::kCommands;
using rows::kItems;

constexpr std::int32_t kFirstBitmap = 101;

constexpr bool BitmapsCount() {
  std::int32_t next = kFirstBitmap;
  return std::ranges::all_of(kCommands,
                             [&](const CommandInfo& row) { return row.BitmapId == next++; });
}

constexpr bool ClassesDiffer() {
  return std::ranges::all_of(kCommands, [](const CommandInfo& row) {
    return row.ClassId != rows::kToolBarClassId &&
           std::ranges::count(kCommands, row.ClassId, &CommandInfo::ClassId) == 1 &&
           std::ranges::count(kCommands, row.ClassName, &CommandInfo::ClassName) == 1;
  });
}

constexpr bool ItemsAreCommands() {
  return std::ranges::all_of(kItems, [](const ToolBarItem& item) {
    return std::ranges::count(kCommands, item.ClassName, &CommandInfo::ClassName) == 1;
  });
}

static_assert(BitmapsCount(), "the rows stand in order of their bitmaps, which count from 101");
static_assert(ClassesDiffer(), "each row has a class and a class identifier of its own");
static_assert(ItemsAreCommands(), "what stands on the bar stands in the table");

}  // namespace

std::span<const CommandInfo> CommandTable() { return kCommands; }

const CommandInfo& CommandNamed(TextView className) {
  const auto row = std::ranges::find(kCommands, className, &CommandInfo::ClassName);
  if (row == std::end(kCommands)) Raise(failure::kInvalidCall);
  return *row;
}

std::span<const ToolBarItem> ToolBarItems() { return kItems; }

Text ProgIdOf(TextView className) { return Text(kComponentName) + u"." + Text(className); }

}  // namespace brelmon
