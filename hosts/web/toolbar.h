// SPDX-License-Identifier: GPL-2.0-or-later
// The twenty commands as the page shows them: the bar's twelve, and all in a menu.
#pragma once

#include <vector>

#include "hosts/web/component.h"
#include "hosts/web/json.h"
#include "platform/application.h"

namespace brelmon::web {

class Toolbar {
 public:
  Toolbar(Component& component, const Ref<IApplication>& application);
  /// Class, texts and picture of each command; the bar's items with their group marks.
  void Describe(Json& json) const;
  /// Asks each command and tells the page which are enabled. A fault out of one is told once.
  void TellEnabled();
  /// Asks, then clicks. A class that isn't there, or a disabled command, does nothing.
  void Click(const Text& className);

 private:
  struct Button {
    Text className;
    Ref<ICommand> command;
    bool told = false;  // that its Enabled fails
  };
  bool IsEnabled(Button& button);

  Component& component_;
  std::vector<Button> buttons_;
  std::vector<std::pair<Text, bool>> bar_;  // class, begins a group
};

/// A failure that no tool has caught: on the status bar.
void TellFault(const Text& reason);

}  // namespace brelmon::web
