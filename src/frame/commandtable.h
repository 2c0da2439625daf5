// SPDX-License-Identifier: GPL-2.0-or-later
// What is known of the commands and the toolbar. Component, hosts, tests and docs read it.
#pragma once

#include <span>

#include "platform/component.h"
#include "platform/text.h"

namespace brelmon {

enum class EnabledRule {
  Always,
  ContentsAny,
  ContentsValid,
  ContentsOne,
  ContentsDeletable,
  Graphics,
  MapHasData,
  AnySelection,
};

struct CommandInfo {
  TextView ClassName;
  Guid ClassId;
  std::int32_t BitmapId;  // resource, 16 by 16 pixels at 24 bits
  TextView Name;
  TextView Caption;
  TextView Tooltip;
  TextView Message;
  TextView Category;
  EnabledRule Rule;
};

/// In order of their bitmaps. The rows stand in frame/commandrows.h.
std::span<const CommandInfo> CommandTable();
/// Fails with 5 for a class that isn't there.
const CommandInfo& CommandNamed(TextView className);

struct ToolBarItem {
  TextView ClassName;
  bool Group;  // begins a new group on the bar
};
inline constexpr TextView kToolBarClass = u"toolBarBrelmon";
inline constexpr TextView kToolBarName = u"BrelmonCommands_BrelmonToolBar";
inline constexpr TextView kToolBarCaption = u"Brelmon Tools";
/// In order of their places.
std::span<const ToolBarItem> ToolBarItems();

/// "BrelmonOpenTable." and the class name.
Text ProgIdOf(TextView className);

}  // namespace brelmon
