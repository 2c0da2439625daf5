// SPDX-License-Identifier: GPL-2.0-or-later
// check: what of the module the tools would skip, stop at or misread.
#include <CLI/CLI.hpp>
#include <iostream>

#include "check/ModuleCheck.h"
#include "cli/actions.h"
#include "cli/checkhost.h"
#include "hosts/common/paths.h"

namespace brelmon::cli {
namespace {

std::string SystemPath(const Text& path) {
  const auto system = host::Paths().ToSystem(path);
  return system ? *system : ToUtf8(path);
}

/// Whether nothing had to be refused.
bool Fix(const CheckedModule& module) {
  bool all = true;
  for (const Fixed& each : FixModule(module)) {
    if (each.Refusal.empty()) {
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

int Check(Session& session, bool fix) {
  CheckHost host(session.Host());
  const CheckedModule module = host.Module();
  const bool fixed = !fix || Fix(module);
  const auto findings = CheckModule(module);
  for (const Finding& each : findings) std::cout << ToUtf8(ToLine(each)) << '\n';
  return fixed && !WouldFail(findings) ? kDone : kFailed;
}

}  // namespace

void AddCheckActions(CLI::App& app, Action& action) {
  const auto fix = std::make_shared<bool>(false);
  CLI::App* check = app.add_subcommand("check", "Tell what in the module would fail in class");
  check->add_flag("--fix", *fix, "Rewrite encodings and line ends first, keeping copies");
  check->callback(
      [&action, fix] { action = [fix](Session& session) { return Check(session, *fix); }; });
}

}  // namespace brelmon::cli
