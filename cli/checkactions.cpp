// SPDX-License-Identifier: GPL-2.0-or-later
// check: what of the module the tools would skip, stop at or misread.
#include <CLI/CLI.hpp>
#include <iostream>

#include "check/ModuleCheck.h"
#include "cli/actions.h"
#include "cli/checkhost.h"
#include "cli/jsonlines.h"
#include "hosts/common/paths.h"

namespace brelmon::cli {
namespace {

std::string SystemPath(const Text& path) {
  const auto system = host::Paths().ToSystem(path);
  return system ? *system : ToUtf8(path);
}

/// Whether nothing had to be refused.
bool Fix(const CheckedModule& module, const JsonLines* lines) {
  bool all = true;
  for (const Fixed& each : FixModule(module)) {
    if (lines != nullptr && each.Refusal.empty()) {
      lines->Print("fixed", {{"file", JsonOf(each.File)}, {"copy", SystemPath(each.Copy)}});
    } else if (each.Refusal.empty()) {
      std::cout << "fixed: " << ToUtf8(each.File) << "; the copy is " << SystemPath(each.Copy)
                << '\n';
    } else {
      all = false;
      std::cerr << "brelmon: " << ToUtf8(each.File) << " was left alone: " << ToUtf8(each.Refusal)
                << std::endl;
    }
  }
  return all;
}

void Print(const Finding& finding, const JsonLines* lines) {
  if (lines == nullptr) {
    std::cout << ToUtf8(ToLine(finding)) << '\n';
    return;
  }
  lines->Print("finding", {{"file", JsonOf(finding.File)},
                           {"line", finding.Line},
                           {"fails", finding.Grade == Severity::Fails},
                           {"wrong", JsonOf(finding.Wrong)},
                           {"then", JsonOf(finding.Then)},
                           {"mended", JsonOf(finding.Mended)}});
}

int Check(Session& session, bool fix, bool json) {
  CheckHost host(session.Host());
  const CheckedModule module = host.Module();
  std::optional<JsonLines> asked;
  if (json) asked.emplace("check");
  const JsonLines* lines = asked ? &*asked : nullptr;
  const bool fixed = !fix || Fix(module, lines);
  const auto findings = CheckModule(module);
  for (const Finding& each : findings) Print(each, lines);
  return fixed && !WouldFail(findings) ? kDone : kFailed;
}

}  // namespace

void AddCheckActions(CLI::App& app, Action& action) {
  const auto fix = std::make_shared<bool>(false);
  CLI::App* check = app.add_subcommand("check", "Tell what in the module would fail in class");
  check->add_flag("--fix", *fix, "Rewrite encodings and line ends first, keeping copies");
  const auto json = AddJsonFlag(*check);
  check->callback([&action, fix, json] {
    action = [fix, json](Session& session) { return Check(session, *fix, *json); };
  });
}

}  // namespace brelmon::cli
