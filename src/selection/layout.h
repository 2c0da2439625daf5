// SPDX-License-Identifier: GPL-2.0-or-later
// What the layouts of the query and the Summarize dialog share: placing, and the three tools.
#pragma once

#include "forms/pictures.h"
#include "toolkit/controls.h"

namespace brelmon {

inline void Place(Control& control, const Text& caption, Twips left, Twips top, Twips width,
                  Twips height) {
  if (!caption.empty()) control.SetCaption(caption);
  control.Move(left, top, width, height);
}

struct SideTool {
  const char* Picture;
  const char16_t* Tip;
};
inline constexpr SideTool kSwitchTool = {"tool-switch.bmp", u"Switch Selection"};
inline constexpr SideTool kStatisticsTool = {"tool-stats.bmp", u"Statistics"};
inline constexpr SideTool kTableTool = {"tool-table.bmp", u"Open Attributes Table"};

/// A picture button of that tool.
inline void PlaceTool(CommandButton& button, const SideTool& tool, Twips left, Twips top,
                      Twips width, Twips height) {
  button.Move(left, top, width, height);
  button.SetPicture(PictureOf(tool.Picture, tool.Tip));
  button.SetToolTipText(tool.Tip);
}

}  // namespace brelmon
