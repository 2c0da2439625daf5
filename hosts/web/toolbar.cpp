// SPDX-License-Identifier: GPL-2.0-or-later
// Commands made through the component, asked and clicked one at a time.
#include "hosts/web/toolbar.h"

#include "frame/commandtable.h"
#include "hosts/common/baritems.h"
#include "hosts/web/page.h"

namespace brelmon::web {
Toolbar::Toolbar(Component& component, const Ref<IApplication>& application)
    : component_(component) {
  for (const CommandInfo& info : CommandTable()) {
    Button button;
    button.className = Text(info.ClassName);
    button.command = component_.CreateObject(ProgIdOf(info.ClassName)).As<ICommand>(0);
    button.command->OnCreate(application);
    buttons_.push_back(std::move(button));
  }
  const auto definition = component_.CreateObject(ProgIdOf(kToolBarClass)).As<IToolBarDef>(0);
  for (const auto& [className, beginsGroup] : host::ItemsOf(*definition)) {
    bar_.emplace_back(className, beginsGroup);
  }
}

void Toolbar::Describe(Json& json) const {
  json.Key("commands").BeginArray();
  for (const Button& button : buttons_) {
    json.Begin()
        .Put("class", button.className)
        .Put("caption", button.command->Caption())
        .Put("tip", button.command->Tooltip())
        .Put("message", button.command->Message())
        .Put("category", button.command->Category())
        .Put("picture",
             "data:image/bmp;base64," + Base64(component_.PictureBytes(button.command->Bitmap())))
        .End();
  }
  json.EndArray().Key("bar").BeginArray();
  for (const auto& [className, group] : bar_) {
    json.Begin().Put("class", className).Put("group", group).End();
  }
  json.EndArray();
}

bool Toolbar::IsEnabled(Button& button) {
  try {
    const bool enabled = button.command->Enabled();
    button.told = false;
    return enabled;
  } catch (...) {
    if (!button.told) TellFault(CurrentFailure().Description);
    button.told = true;
    return false;
  }
}

void Toolbar::TellEnabled() {
  Json json;
  json.Begin().Put("what", "enabled").Key("classes").BeginArray();
  for (Button& button : buttons_) {
    if (IsEnabled(button)) json.Add(button.className);
  }
  Tell(json.EndArray().End());
}

void Toolbar::Click(const Text& className) {
  for (Button& button : buttons_) {
    if (button.className != className || !IsEnabled(button)) continue;
    const Ref<ICommand> command = button.command;
    command->OnClick();
    return;
  }
}

void TellFault(const Text& reason) {
  Tell(Json().Begin().Put("what", "fault").Put("text", reason).End());
}

}  // namespace brelmon::web
