// SPDX-License-Identifier: GPL-2.0-or-later
// A module in memory, checked and then used: what the check predicts is what the tools do.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "check/ModuleCheck.h"
#include "media/brelmon_mediadialog.h"
#include "media/cmdMediaViewer.h"
#include "quickload/brelmon_quickjumpdialog.h"
#include "quickload/cmdQuickLoad.h"
#include "tests/support/fake_world.h"

namespace brelmon::test {

class ModuleTest : public ::testing::Test {
 protected:
  using QuickLoad = brelmon_QuickJumpDialog;
  using Media = brelmon_MediaDialog;

  ModuleTest() {
    world.files[world.path] = "<project>\n<layer name=\"Layers\"/>\n<layer name=\"quakes\"/>\n";
    SetQuickLoad("");
    SetMedia("");
  }

  void SetQuickLoad(const std::string& bytes) { Put(u"QuickLoad.txt", bytes); }
  void SetMedia(const std::string& bytes) { Put(u"media_list.txt", bytes); }
  void Put(const Text& name, const std::string& bytes = "x") {
    world.files[u"C:\\Module\\" + name] = bytes;
  }
  CheckedModule Module() {
    CheckedModule module;
    module.DocumentPath = world.path;
    module.Document = world.document;
    module.Files = CurrentServices().files;
    module.Locale = CurrentLocale();
    return module;
  }
  /// The findings, a line each; "(note) " before those that don't fail.
  std::string Check() {
    std::string all;
    for (const Finding& finding : CheckModule(Module())) {
      all += (finding.Grade == Severity::Note ? "(note) " : "") + ToUtf8(ToLine(finding)) + "\n";
    }
    return all;
  }

  /// One click on a new QuickLoad: the rows under an option; -1 leaves by Cancel, else the row is
  /// chosen. Boxes and trails stay in the world.
  std::string Jump(OptionButton QuickLoad::*option, std::int32_t row = -1) {
    std::string rows;
    world.users[u"brelmon_QuickJumpDialog"] = [&](Form& form) {
      auto& dialog = static_cast<QuickLoad&>(form);
      (dialog.*option).UserClick();
      rows = RowsOf(dialog.lbxList);
      if (row >= 0) dialog.lbxList.UserClick(row);
      (row >= 0 ? dialog.cmdOK : dialog.cmdCancel).UserClick();
    };
    const auto command = New<cmdQuickLoad>();
    command->OnCreate(world.application);
    command->OnClick();
    return rows;
  }
  /// One click on the media viewer: the rows at first; a row of "All Media" is opened, then Cancel.
  std::string View(std::int32_t row = -1, OptionButton Media::*option = &Media::optAll) {
    std::string rows;
    world.users[u"brelmon_MediaDialog"] = [&](Form& form) {
      auto& dialog = static_cast<Media&>(form);
      if (option != &Media::optAll) (dialog.*option).UserClick();
      rows = RowsOf(dialog.lbxAll);
      if (row >= 0) dialog.lbxAll.UserClick(row);
      if (row >= 0) dialog.cmdOK.UserClick();
      dialog.cmdCancel.UserClick();
    };
    const auto command = New<cmdMediaViewer>();
    command->OnCreate(world.application);
    command->OnClick();
    return rows;
  }
  /// The last message box, or the trails.
  std::string Told() {
    return world.boxes.empty() ? Trails(world) : ToUtf8(world.boxes.back().text);
  }
  /// "file in directory" of what was opened last.
  std::string Opened() {
    if (world.executed.empty()) return {};
    const auto& last = world.executed.back();
    return ToUtf8(last.file) + " in " + ToUtf8(last.directory);
  }

  FakeWorld world;

 private:
  static std::string RowsOf(ListBox& list) {
    std::string rows;
    for (std::int32_t row = 0; row < list.ListCount(); ++row) {
      rows += ToUtf8(list.List(row)) + "\n";
    }
    return rows;
  }
};

#define EXPECT_TOLD(part) EXPECT_NE(Told().find(part), std::string::npos) << Told()

}  // namespace brelmon::test
