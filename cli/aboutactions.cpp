// SPDX-License-Identifier: GPL-2.0-or-later
// about: the About box as text.
#include <CLI/CLI.hpp>
#include <iostream>

#include "cli/actions.h"
#include "cli/reports.h"
#include "cli/userforms.h"

namespace brelmon::cli {
namespace {

int About(Session& session) {
  const auto work = [](Form& form) {
    const auto caption = [&form](TextView name) { return form.ControlNamed(name).Caption(); };
    PrintText(form.Caption());
    PrintText(caption(u"lblVersion"));
    std::cout << '\n';
    PrintText(Get<RichTextBox>(form, u"rtfAbout").PlainText());
    std::cout << '\n';
    PrintText(Trim(caption(u"lglGIS")) + u" " + caption(u"lblWebSite"));
    PrintText(Trim(caption(u"lblSponsor1")) + u" " + caption(u"lblSponsor2"));
    Press(form, u"cmdOK", "the About box can't be closed");
  };
  const Outcome outcome = session.Click(u"cmdAbout", {{u"frmAbout", work}});
  return outcome.Untroubled() ? kDone : kFailed;
}

}  // namespace

void AddAboutActions(CLI::App& app, Action& action) {
  app.add_subcommand("about", "Print the About box")->callback([&action] { action = About; });
}

}  // namespace brelmon::cli
