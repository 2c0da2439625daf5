// SPDX-License-Identifier: GPL-2.0-or-later
// What report windows hold.
#include "cli/reports.h"

#include <iostream>

#include "cli/userforms.h"

namespace brelmon::cli {
namespace {

std::string WithOneEnd(const Text& text) {
  std::string lines = headless::ForStream(text);
  while (!lines.empty() && lines.back() == '\n') lines.pop_back();
  return lines + '\n';
}

}  // namespace

void PrintText(const Text& text) { std::cout << WithOneEnd(text); }

void PrintTexts(const std::vector<Text>& texts) {
  std::string lines;
  for (const Text& text : texts) lines += WithOneEnd(text);
  std::cout << lines;
}

std::shared_ptr<Form> ShownReport(Session& session) {
  for (const auto& form : session.Host().Modeless().Visible()) {
    if (form->Name() == u"frmReport") return form;
  }
  return {};
}

void CloseReport(Session& session) {
  if (const auto report = ShownReport(session)) Get<CommandButton>(*report, u"cmdOK").UserClick();
}

Text ReportText(Form& report) { return Get<TextBox>(report, u"txtReport").Text(); }

Hands ReadReports(const Text& complaint, int* complaints) {
  return {u"frmReport_modal", [complaint, complaints](Form& form) {
            const Text caption = form.Caption();
            if (complaints != nullptr && caption == complaint) {
              ++*complaints;
              std::cerr << '[' << ToUtf8(caption) << "] " << WithOneEnd(ReportText(form));
            } else {
              PrintText(ReportText(form));
            }
            Press(form, u"cmdOK", "the report can't be closed");
          }};
}

}  // namespace brelmon::cli
