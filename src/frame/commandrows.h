// SPDX-License-Identifier: GPL-2.0-or-later
// The rows of the command table and of the bar, for whoever holds something to them when compiled.
#pragma once

#include "frame/commandtable.h"

namespace brelmon::rows {

inline constexpr TextView kCategory = u"Brelmon Commands";
inline constexpr TextView kQLCategory = u"Brelmon QL Commands";

inline constexpr Guid kToolBarClassId = GuidOf(0xD65AD453, 0x789C, 0x5BFD, 0x9C14, 0x9275D39E0D5B);

inline constexpr CommandInfo kCommands[] = {
    {u"OpenTable", GuidOf(0x0B54EE6B, 0xAFB3, 0x5DDC, 0xBCDE, 0xB32F1C640874), 101,
     u"BrelmonCommands_OpenTableTool", u"Open Table", u"Open Attribute Table",
     u"Open attribute tables for all currently active feature themes...", kCategory,
     EnabledRule::ContentsAny},
    {u"cmdMediaViewer", GuidOf(0xC7F68A09, 0xE7C8, 0x5FD9, 0x9B08, 0xD312A1C8781C), 102,
     u"BrelmonCommands_MediaViewerTool", u"Media Viewer Tool", u"Open Media Viewer",
     u"Open Brelmon media viewer tool, allowing access to additional documents...", kCategory,
     EnabledRule::Always},
    {u"cmdStats", GuidOf(0xF09D7342, 0xA3CA, 0x5A81, 0x907C, 0x31755E456051), 103,
     u"BrelmonCommands_StatisticsCommand", u"Calculate Statistics", u"Brelmon Statistics",
     u"Calculate statistics on a field in a table...", kCategory, EnabledRule::MapHasData},
    {u"cmdHistogramStats", GuidOf(0x5AB41433, 0xA2C4, 0x51D0, 0x9A17, 0x91B2A8D84A6E), 104,
     u"BrelmonCommands_StatisticsHistogramCommand", u"ArcGIS Statistics",
     u"Statistics on Selected Features",
     u"Open the standard ArcGIS statistics window, including simple statistics on selected "
     u"features...",
     kCategory, EnabledRule::AnySelection},
    {u"cmdSelectNone", GuidOf(0xFAF58963, 0xE082, 0x5094, 0xB34D, 0xCEAD0B5C8976), 105,
     u"BrelmonCommands_SelectNoneTool", u"Clear Selected Features", u"Clear Selected Features",
     u"Clear selected features for all feature themes and tables...", kCategory,
     EnabledRule::MapHasData},
    {u"cmdSelectSwitch", GuidOf(0x920CB8D4, 0x0C1C, 0x5BB6, 0x8262, 0x901D0834A972), 106,
     u"BrelmonCommands_SelectSwitchTool", u"Switch Selected Features", u"Switch Selected Features",
     u"Switch (or Flip) selection set for all currently active feature themes and tables...",
     kCategory, EnabledRule::ContentsValid},
    {u"cmdSelectAll", GuidOf(0x85BC4092, 0xEFAE, 0x528E, 0xBF9F, 0x3EF39FD3958D), 107,
     u"BrelmonCommands_SelectAllTool", u"Select All Features", u"Select All Features",
     u"Select all features for all currently active feature themes and tables...", kCategory,
     EnabledRule::ContentsValid},
    {u"cmdSelByAttributes", GuidOf(0xC9016B38, 0x1D88, 0x5AC4, 0x9E7E, 0x6DD61BCA6627), 108,
     u"BrelmonCommands_SelectByAttributes", u"ArcGIS Select By Attributes",
     u"ArcGIS Select By Attributes", u"Open the standard ArcGIS 'Select By Attributes' window...",
     kCategory, EnabledRule::Always},
    {u"cmdSelByLocation", GuidOf(0xC33F0400, 0x1642, 0x5093, 0x847D, 0x50D848B3C3A7), 109,
     u"BrelmonCommands_SelectByLocation", u"Select By Location", u"Select By Location",
     u"Open the standard ArcGIS 'Select By Location' window...", kCategory, EnabledRule::Always},
    {u"cmdSumBrelmon", GuidOf(0xC524FA8D, 0x16C1, 0x5495, 0xBD4D, 0xE6C2112D3CA8), 110,
     u"BrelmonCommands_BrelmonSummarize", u"Brelmon Summarize", u"Brelmon Summarize",
     u"Open the Brelmon 'Summarize' window...", kCategory, EnabledRule::MapHasData},
    {u"cmdSelByAttBrelmon", GuidOf(0x569958A0, 0x6929, 0x5A68, 0x80D0, 0xD21B454D4577), 111,
     u"BrelmonCommands_BrelmonSelectByAttributes", u"Brelmon Select By Attributes",
     u"Brelmon Select By Attributes", u"Open the Brelmon 'Select By Attributes' window...",
     kCategory, EnabledRule::MapHasData},
    {u"cmdQuickLoad", GuidOf(0x27651F05, 0x4088, 0x5459, 0x88CC, 0x7BB75D3241BD), 112,
     u"BrelmonCommands_QuickLoadTool", u"QuickLoad Objects", u"QuickLoad",
     u"QuickLoad:  Shortcuts to layers, queries, spatial bookmarks and maps...", kCategory,
     EnabledRule::Always},
    {u"cmdQLAddSpatial", GuidOf(0xE566BE7A, 0x0D4A, 0x538D, 0xB09C, 0x3FB59E0E7CD2), 113,
     u"BrelmonCommands_QLEditAddBookmark", u"QL Edit - Add Bookmarks",
     u"QuickLoad Edit:  Add Spatial Bookmark",
     u"QuickLoad Editor:  Add Spatial Bookmark to QuickLoad.txt file...", kQLCategory,
     EnabledRule::Always},
    {u"cmdQLAddQuery", GuidOf(0xD6421685, 0x88DD, 0x5197, 0x92C1, 0x7B81541186C4), 114,
     u"BrelmonCommands_QLEditAddQuery", u"QL Edit - Add Query", u"QuickLoad Edit:  Add Query",
     u"QuickLoad Editor:  Add Query String to QuickLoad.txt file...", kQLCategory,
     EnabledRule::Always},
    {u"cmdQLAddLayer", GuidOf(0xE5E018F6, 0x6D46, 0x5747, 0xA672, 0xC806B9E3F71B), 115,
     u"BrelmonCommands_QLEditAddLayer", u"QL Edit - Add Layer", u"QuickLoad Edit:  Add Layer",
     u"QuickLoad Editor:  Add Layer Reference to QuickLoad.txt file...", kQLCategory,
     EnabledRule::Always},
    {u"cmdQLDelete", GuidOf(0xB41463E0, 0x8772, 0x5477, 0x874A, 0xFBE2562599FE), 116,
     u"BrelmonCommands_QLEditDelete", u"QL Edit - Delete Reference",
     u"QuickLoad Edit:  Delete Reference",
     u"QuickLoad Editor:  Delete references from QuickLoad.txt file...", kQLCategory,
     EnabledRule::Always},
    {u"cmdDeleteSelLayers", GuidOf(0x558CD22E, 0x362F, 0x5FC3, 0x946A, 0x49002978DA84), 117,
     u"BrelmonCommands_DeleteLayersTool", u"Delete Layers", u"Delete Layers",
     u"Delete all currently selected feature themes, tables or map...", kCategory,
     EnabledRule::ContentsDeletable},
    {u"cmdSummarize", GuidOf(0xB9EEAC30, 0x9DEF, 0x5090, 0xA60A, 0xEE0FBC42F352), 118,
     u"BrelmonCommands_Summarize", u"ArcGIS Summarize", u"ArcGIS Summarize",
     u"Open the standard ArcGIS 'Summarize' window...", kCategory, EnabledRule::ContentsOne},
    {u"cmdSelByGraphic", GuidOf(0x4E403810, 0x189C, 0x5100, 0xB546, 0xFDB13ABA7F60), 119,
     u"BrelmonCommands_SelectByGraphicsTool", u"Select by Graphics", u"Select by Graphics",
     u"Select from currently active layers, using selected graphic...", kCategory,
     EnabledRule::Graphics},
    {u"cmdAbout", GuidOf(0x2C67D21A, 0x67FA, 0x5FA4, 0x999D, 0x9679EB01BA0C), 120,
     u"BrelmonCommands_About", u"About BRELMON", u"About BRELMON",
     u"BRELMON:  Maps, tables and questions for Earth-science classrooms", kCategory,
     EnabledRule::Always},
};

inline constexpr ToolBarItem kItems[] = {
    {u"OpenTable", false},        {u"cmdMediaViewer", false},    {u"cmdStats", false},
    {u"cmdSumBrelmon", false},    {u"cmdQuickLoad", false},      {u"cmdSelByAttBrelmon", true},
    {u"cmdSelByLocation", false}, {u"cmdSelByGraphic", false},   {u"cmdSelectNone", true},
    {u"cmdSelectSwitch", false},  {u"cmdDeleteSelLayers", true}, {u"cmdAbout", true},
};

}  // namespace brelmon::rows
