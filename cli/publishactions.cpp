// SPDX-License-Identifier: GPL-2.0-or-later
// publish: the module as a web page.
#include <signal.h>

#include <CLI/CLI.hpp>
#include <array>
#include <iostream>

#include "cli/actions.h"
#include "cli/pagefolder.h"
#include "hosts/publish/publish.h"

namespace brelmon::cli {
namespace {

std::string Counted(std::int64_t count, const std::string& one, const std::string& several) {
  return std::to_string(count) + " " + (count == 1 ? one : several);
}

volatile sig_atomic_t stopped = 0;

/// For its length a signal to end the program ends the action alone, which then tidies up.
class Stoppable {
 public:
  Stoppable() {
    stopped = 0;
    struct sigaction act {};
    act.sa_handler = [](int) { stopped = 1; };
    for (std::size_t i = 0; i < kSignals.size(); ++i) ::sigaction(kSignals[i], &act, &before_[i]);
  }
  ~Stoppable() {
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
      ::sigaction(kSignals[i], &before_[i], nullptr);
    }
  }
  Stoppable(const Stoppable&) = delete;
  Stoppable& operator=(const Stoppable&) = delete;

 private:
  static constexpr std::array<int, 3> kSignals = {SIGINT, SIGTERM, SIGHUP};
  std::array<struct sigaction, 3> before_{};
};

/// What is on the disk, not what the session made of it.
int Publish(Session& session, const std::string& folder, bool single) {
  const Stoppable stoppable;
  const publish::Published done = publish::Publish(
      {session.Host().MapDocument(), folder, PageFolder(), single, [] { return stopped != 0; }});
  for (const std::string& line : done.report) std::cout << line << '\n';
  std::cout << "published in " << folder << ": " << Counted(done.tables, "table", "tables") << ", "
            << Counted(done.rows, "row", "rows") << ", "
            << Counted(done.pictures, "picture", "pictures") << ", "
            << Counted(done.media, "medium", "media") << '\n';
  return kDone;
}

}  // namespace

void AddPublishActions(CLI::App& app, Action& action) {
  const auto folder = std::make_shared<std::string>();
  const auto single = std::make_shared<bool>(false);
  CLI::App* publish = app.add_subcommand("publish", "Write the module as a web page");
  publish->add_option("FOLDER", *folder, "A new or empty folder, or one published before")
      ->required();
  publish->add_flag("--single", *single, "For opening without a web server, as from a stick");
  publish->callback([&action, folder, single] {
    action = [folder, single](Session& session) { return Publish(session, *folder, *single); };
  });
}

}  // namespace brelmon::cli
