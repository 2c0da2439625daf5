// SPDX-License-Identifier: GPL-2.0-or-later
// Shared by the tests of the QuickLoad commands: a created command, users of its forms.
#pragma once

#include <string>

#include "platform/textfile.h"
#include "quickload/brelmon_quickjumpdialog.h"
#include "quickload/frm_InputQuery.h"
#include "quickload/frm_InputSpatialBookmark.h"
#include "quickload/frm_QLDelete.h"
#include "statistics/frmReport_modal.h"
#include "tests/support/fake_world.h"

namespace brelmon::test {

inline const Text kQuickLoadPath = u"C:\\Module\\QuickLoad.txt";

/// A created command, as a host makes it.
template <class Command>
Ref<Command> Create(FakeWorld& world) {
  auto command = New<Command>();
  command->OnCreate(world.application);
  return command;
}

/// One click on a new command.
template <class Command>
void Click(FakeWorld& world) {
  Create<Command>(world)->OnClick();
}

inline std::string* QuickLoadBytes(FakeWorld& world) { return world.FileAt(kQuickLoadPath); }

/// Rows of a list, one a line.
inline std::string Rows(ListBox& list) {
  std::string rows;
  for (std::int32_t row = 0; row < list.ListCount(); ++row) rows += ToUtf8(list.List(row)) + "\n";
  return rows;
}

/// What the report windows of one click showed: "[caption] text".
class Reports {
 public:
  explicit Reports(FakeWorld& world) {
    world.users[u"frmReport_modal"] = [this](Form& form) {
      auto& report = static_cast<frmReport_modal&>(form);
      shown.push_back("[" + ToUtf8(report.Caption()) + "] " + ToUtf8(report.txtReport.Text()));
      report.cmdOK.UserClick();
    };
  }
  std::vector<std::string> shown;
};

}  // namespace brelmon::test
