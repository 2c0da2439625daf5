// SPDX-License-Identifier: GPL-2.0-or-later
// Host, component, commands, clicks.
#include "cli/session.h"

#include <filesystem>
#include <iostream>

#include "cli/heldshell.h"
#include "cli/progresspicture.h"
#include "cli/terminal.h"
#include "cli/userforms.h"
#include "frame/commandtable.h"
#include "frame/guard.h"

namespace brelmon::cli {
namespace {

/// For its length the host's user works forms; afterwards nobody does.
class AtTheForms {
 public:
  explicit AtTheForms(headless::HeadlessHost& host) : host_(host) {}
  ~AtTheForms() {
    host_.Forms().ForgetAll();
    host_.Catalog().Forget();
  }
  AtTheForms(const AtTheForms&) = delete;
  AtTheForms& operator=(const AtTheForms&) = delete;

 private:
  headless::HeadlessHost& host_;
};

bool IsQuestion(int style) { return headless::DefaultAnswer(style) != box::kAnswerOk; }

int AnswerOf(int style, bool yes) {
  if (!yes) return headless::DefaultAnswer(style);
  return headless::DefaultAnswer(style) == box::kAnswerNo ? box::kAnswerYes : box::kAnswerOk;
}

}  // namespace

Session::Session(const std::string& module)
    : host_(module),
      progress_(std::make_unique<ProgressPicture>(host_.StatusBar())),
      shell_(std::make_unique<HeldShell>(*host_.HostServices().shell)) {
  host_.Boxes().SetStream(progress_->Errors());
  host_.Boxes().SetAnswer([this](const Text& text, int style, const Text& title) {
    return AnswerBox(text, style, title);
  });
  Services services = host_.HostServices();
  services.shell = shell_.get();
  std::error_code none;
  const auto folder = std::filesystem::read_symlink("/proc/self/exe", none).parent_path();
  component_ = host::Component::Load(host::Component::Find(folder, BRELMON_COMPONENT), services);
}

Session::~Session() = default;

void Session::Use(const Choices& choices) {
  choices_ = choices;
  if (choices.now) {
    host_.Clock().Fix(choices.now);
  } else {
    host_.Clock() = host::HostClock();
  }
}

Ref<IObject> Session::CreateObject(TextView className) {
  return component_->CreateObject(ProgIdOf(className));
}

Ref<ICommand> Session::Command(TextView className) {
  Ref<ICommand>& command = commands_[Text(className)];
  if (!command) {
    command = CreateObject(className).As<ICommand>();
    command->OnCreate(host_.Application());
  }
  return command;
}

bool Session::Enabled(TextView className) {
  const auto tell = [&](const Failure& failure) {
    std::cerr << ToUtf8(className)
              << " can't tell whether it is enabled: " << ToUtf8(failure.Description) << " ("
              << failure.Number << ")" << std::endl;
  };
  return enabled_[Text(className)].Ask([&] { return Command(className); }, tell);
}

Outcome Session::Click(TextView className, const std::vector<Hands>& hands,
                       const std::vector<std::string>& files) {
  const std::string name = ToUtf8(className);
  if (!Enabled(className)) throw Refusal(name + " is disabled");
  const AtTheForms atTheForms(host_);
  SitDown(className, hands, files);
  outcome_ = {};
  problem_.clear();
  const int shownBefore = host_.Boxes().Shown();
  try {
    Command(className)->OnClick();
  } catch (const Failure& failure) {
    problem_ = name + " failed: " + ToUtf8(failure.Description) + " (" +
               std::to_string(failure.Number) + ")";
  }
  progress_->Clear();
  outcome_.Trails = host_.Boxes().Shown() - shownBefore - outcome_.Accepted - outcome_.Declined -
                    static_cast<int>(outcome_.Told.size());
  if (!problem_.empty()) throw Refusal(problem_);
  return outcome_;
}

void Session::SitDown(TextView className, const std::vector<Hands>& hands,
                      const std::vector<std::string>& files) {
  for (const FormAction& each : kFormActions) {
    host_.Forms().Register(Text(each.Form), [this, name = ToUtf8(className), &each](Form& form) {
      if (problem_.empty()) {
        problem_ = name + " opens the form \"" + ToUtf8(form.Caption()) + "\": use " + each.Action;
      }
      Dismiss(form);
    });
  }
  for (const Hands& each : hands) {
    host_.Forms().Register(each.Form, [this, each](Form& form) { Work(each, form); });
  }
  if (!files.empty()) host_.Catalog().Choose(files);
  for (int i = 0; i < kMostCatalogDialogs; ++i) host_.Catalog().Cancel();
}

// What ends an action must not run through a tool, which would take it for a failure of its own.
void Session::Work(const Hands& hands, Form& form) {
  try {
    hands.Work(form);
    return;
  } catch (const Failure& failure) {
    problem_ = ToUtf8(failure.Description) + " (" + std::to_string(failure.Number) + ")";
  } catch (const std::exception& reason) {
    problem_ = reason.what();
  }
  Dismiss(form);
}

int Session::AnswerBox(const Text& text, int style, const Text& title) {
  if (!IsQuestion(style)) {
    // A failure in a plain box is counted among the trails.
    if (!text.starts_with(Guard::kPlainBoxLabel)) outcome_.Told.push_back(title);
    return box::kAnswerOk;
  }
  const bool yes = choices_.answer ? *choices_.answer : AtTerminal() && AskYesNo();
  ++(yes ? outcome_.Accepted : outcome_.Declined);
  return AnswerOf(style, yes);
}

}  // namespace brelmon::cli
