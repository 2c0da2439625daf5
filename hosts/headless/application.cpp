// SPDX-License-Identifier: GPL-2.0-or-later
// What the tools reach through their hook.
#include "hosts/headless/application.h"

#include <array>

#include "hosts/common/hostfailure.h"

namespace brelmon::headless {
namespace {

struct DesktopCommand {
  TextView identifier;
  const char* name;
};

constexpr std::array<DesktopCommand, 3> kDesktopCommands = {{
    {hostcommand::kStatistics, "Statistics of the selected features"},
    {hostcommand::kSelectByLocation, "Select By Location"},
    {hostcommand::kSelectByAttributes, "Select By Attributes"},
}};

class RefusingCommand : public ICommandItem {
 public:
  explicit RefusingCommand(const char* name) : name_(name) {}
  void Execute() override {
    host::Fail(
        failure::kNotSupported,
        std::string(name_) + " is a dialog of a desktop map; there is none without a screen.");
  }

 private:
  const char* name_;
};

class OneTemplate : public ITemplates {
 public:
  explicit OneTemplate(Text path) : path_(std::move(path)) {}
  std::int32_t Count() override { return 1; }
  Text Item(std::int32_t index) override {
    if (index != 0) host::Fail(failure::kSubscript);
    return path_;
  }

 private:
  Text path_;
};

class ApplicationObject : public IApplication {
 public:
  ApplicationObject(Ref<IMxDocument> document, Ref<IStatusBar> statusBar, Text documentPath)
      : document_(std::move(document)),
        statusBar_(std::move(statusBar)),
        templates_(New<OneTemplate>(std::move(documentPath))) {}
  Ref<IDocument> Document() override { return document_.As<IDocument>(); }
  Ref<IStatusBar> StatusBar() override { return statusBar_; }
  Ref<ITemplates> Templates() override { return templates_; }
  std::int32_t hWnd() override { return 0; }

 private:
  Ref<IMxDocument> document_;
  Ref<IStatusBar> statusBar_;
  Ref<ITemplates> templates_;
};

}  // namespace

void ProgressBar::ShowProgressBar(const Text& message, std::int32_t minimum, std::int32_t maximum,
                                  std::int32_t step, bool) {
  now_ = {message, minimum, maximum, step, minimum, true};
  Tell();
}

void ProgressBar::StepProgressBar() {
  if (!now_.visible) return;
  now_.position =
      now_.position > now_.maximum - now_.step ? now_.maximum : now_.position + now_.step;
  Tell();
}

void ProgressBar::HideProgressBar() {
  now_.visible = false;
  Tell();
}

Ref<ICommandItem> FindHostCommand(const Text& identifier) {
  for (const DesktopCommand& command : kDesktopCommands) {
    if (EqualNoCase(command.identifier, identifier)) return New<RefusingCommand>(command.name);
  }
  return {};
}

Ref<IApplication> NewApplication(Ref<IMxDocument> document, Ref<IStatusBar> statusBar,
                                 Text documentPath) {
  return New<ApplicationObject>(std::move(document), std::move(statusBar), std::move(documentPath));
}

}  // namespace brelmon::headless
