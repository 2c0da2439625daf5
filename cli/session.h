// SPDX-License-Identifier: GPL-2.0-or-later
// One module opened in the headless host, the component's commands, and a user at its forms.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "cli/choices.h"
#include "cli/refusal.h"
#include "hosts/common/componentloader.h"
#include "hosts/common/enabledquestion.h"
#include "hosts/headless/headlesshost.h"

namespace brelmon::cli {

class HeldShell;
class ProgressPicture;

/// What a form's user does. A Refusal out of it closes the form and ends the action.
struct Hands {
  Text Form;
  std::function<void(brelmon::Form&)> Work;
};

/// What was shown while a click ran.
struct Outcome {
  std::vector<Text> Told;  // titles of the message boxes that asked nothing
  int Accepted = 0;        // questions that were answered Yes or OK
  int Declined = 0;        // questions that were answered No or Cancel
  int Trails = 0;          // failures told by the error dialog or in a plain box
  bool Untroubled() const { return Told.empty() && Declined == 0 && Trails == 0; }
};

class Session {
 public:
  /// Opens the module and loads the component. Throws std::runtime_error with a reason to be shown.
  explicit Session(const std::string& module);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  headless::HeadlessHost& Host() { return host_; }
  Ref<IMxDocument> Document() { return host_.Document(); }
  /// The file or web address that a tool handed to its default program; held back unless `open`.
  HeldShell& Shell() { return *shell_; }

  /// For the actions to come.
  void Use(const Choices& choices);

  /// A new object of one of the component's classes.
  Ref<IObject> CreateObject(TextView className);
  /// The command, made and handed the application at its first use.
  Ref<ICommand> Command(TextView className);
  /// Its rule's answer. A failure disables and is told on standard error, once as long as it lasts.
  bool Enabled(TextView className);
  /// A click as a user's: refused for a disabled command. Forms that appear are worked by `hands`;
  /// one that nobody works is closed and refused, and so is what escapes from the click. A catalog
  /// dialog is given `files` (system paths), or Cancel where there are none.
  Outcome Click(TextView className, const std::vector<Hands>& hands = {},
                const std::vector<std::string>& files = {});

 private:
  int AnswerBox(const Text& text, int style, const Text& title);
  void Work(const Hands& hands, Form& form);
  void SitDown(TextView className, const std::vector<Hands>& hands,
               const std::vector<std::string>& files);

  headless::HeadlessHost host_;
  std::unique_ptr<ProgressPicture> progress_;
  std::unique_ptr<HeldShell> shell_;
  std::unique_ptr<host::Component> component_;
  std::map<Text, Ref<ICommand>> commands_;
  std::map<Text, host::EnabledQuestion<headless::QuietErrors>> enabled_;
  Choices choices_;
  Outcome outcome_;
  std::string problem_;
};

}  // namespace brelmon::cli
