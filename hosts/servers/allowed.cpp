// SPDX-License-Identifier: GPL-2.0-or-later
// Hosts by name; nothing is looked up for them.
#include "hosts/servers/allowed.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <set>

namespace brelmon::servers {
namespace {

std::string Folded(std::string host) {
  std::transform(host.begin(), host.end(), host.begin(), [](unsigned char unit) {
    return static_cast<char>(unit >= 'A' && unit <= 'Z' ? unit | 0x20 : unit);
  });
  while (host.ends_with('.')) host.pop_back();
  return host;
}

std::set<std::string>& Allowed() {
  static std::set<std::string> hosts;
  return hosts;
}

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

/// Empty where the environment tells of no folder.
std::string SettingsFile() {
  const std::string config = Environment("XDG_CONFIG_HOME");
  if (config.starts_with('/')) return config + "/brelmon/servers";
  const std::string home = Environment("HOME");
  return home.empty() ? "" : home + "/.config/brelmon/servers";
}

bool StandsInSettings(const std::string& host) {
  std::ifstream file(SettingsFile());
  for (std::string line; std::getline(file, line);) {
    line.resize(std::min(line.find('#'), line.size()));
    const std::size_t from = line.find_first_not_of(" \t\r");
    if (from == std::string::npos) continue;
    if (Folded(line.substr(from, line.find_last_not_of(" \t\r") + 1 - from)) == host) return true;
  }
  return false;
}

bool IsSocket(const std::string& host) { return host.starts_with('/') || host.starts_with('@'); }

/// Each of them may be called: "one,other" stands for whichever answers.
std::string RefusalOfHosts(const std::string& hosts) {
  for (std::size_t at = 0; at <= hosts.size();) {
    const std::size_t end = std::min(hosts.find(',', at), hosts.size());
    const std::string host = Folded(hosts.substr(at, end - at));
    at = end + 1;
    if (host.empty() || IsSocket(host)) continue;
    if (Allowed().count(host) != 0 || StandsInSettings(host)) continue;
    return "the server " + host + " is not called unless you allow it: --server " + host +
           ", or a line \"" + host + "\" in ~/.config/brelmon/servers";
  }
  return {};
}

}  // namespace

void AllowServer(const std::string& host) { Allowed().insert(Folded(host)); }

std::string RefusalToCall(const Address& address) {
  if (address.Trusted) return {};
  if (!address.Host.empty()) {
    const std::string refusal = RefusalOfHosts(address.Host);
    if (!refusal.empty()) return refusal;
  } else if (address.Service.empty() && Environment("PGSERVICE").empty()) {
    const std::string refusal = RefusalOfHosts(Environment("PGHOST"));
    if (!refusal.empty()) return refusal;
  }
  // A number that stands in the environment goes before any name.
  return RefusalOfHosts(Environment("PGHOSTADDR"));
}

}  // namespace brelmon::servers
