// SPDX-License-Identifier: GPL-2.0-or-later
// What the tools reach through their hook.
#include "hosts/document/application.h"

#include <array>

#include "hosts/common/hostfailure.h"

namespace brelmon::document {
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

std::string Refusal(const char* dialog, const char* none) {
  return std::string(dialog) + " is a dialog of a desktop map; " + none;
}

class RefusingCommand : public ICommandItem {
 public:
  RefusingCommand(const char* name, const char* none) : name_(name), none_(none) {}
  void Execute() override { host::Fail(failure::kNotSupported, Refusal(name_, none_) + "."); }

 private:
  const char *name_, *none_;
};

class RefusingSummarize : public ISummarizeDialog {
 public:
  explicit RefusingSummarize(const char* none) : none_(none) {}
  void SetApplication(const Ref<IApplication>&) override {}
  void SetTable(const Ref<ITable>&) override {}
  void SetField(const Ref<IField>& field) override { field_ = field->Name(); }
  void SetFlag(bool) override {}
  void DoModal(std::int32_t) override {
    host::Fail(failure::kNotSupported, Refusal("Summarize", none_) +
                                           " (it would have opened on the field " + ToUtf8(field_) +
                                           ").");
  }

 private:
  const char* none_;
  Text field_;
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

Ref<ICommandItem> FindDesktopCommand(const Text& identifier, const char* none) {
  for (const DesktopCommand& command : kDesktopCommands) {
    if (EqualNoCase(command.identifier, identifier))
      return New<RefusingCommand>(command.name, none);
  }
  return {};
}

Ref<ISummarizeDialog> NewDesktopSummarize(const char* none) { return New<RefusingSummarize>(none); }

Ref<IApplication> NewApplication(Ref<IMxDocument> document, Ref<IStatusBar> statusBar,
                                 Text documentPath) {
  return New<ApplicationObject>(std::move(document), std::move(statusBar), std::move(documentPath));
}

}  // namespace brelmon::document
