// SPDX-License-Identifier: GPL-2.0-or-later
#include "tests/servers/server.h"

#include <array>
#include <cstdio>
#include <stdexcept>

namespace brelmon::servers::test {
namespace {

std::string OutputOf(const std::string& command) {
  std::string output;
  std::array<char, 4096> piece{};
  FILE* pipe = ::popen(command.c_str(), "r");
  while (std::fgets(piece.data(), piece.size(), pipe) != nullptr) output += piece.data();
  if (::pclose(pipe) != 0) throw std::runtime_error("failed: " + command + "\n" + output);
  return output;
}

std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char unit : text) {
    escaped += unit == '"'   ? "&quot;"
               : unit == '<' ? "&lt;"
               : unit == '&' ? "&amp;"
                             : std::string(1, unit);
  }
  return escaped;
}

}  // namespace

void Cluster(const std::string& action, const std::string& name) {
  OutputOf(BRELMON_CLUSTERS " " + action + " " + name + " " BRELMON_SERVERS " 2>&1");
}

std::string Psql(const std::string& server, const std::string& statement) {
  const TempFolder folder;
  folder.Write("statement", statement);
  std::string output = OutputOf("PGSERVICE=brelmon_" + server + " psql -X -q -A -t -U owner -f " +
                                folder.Path("statement") + " 2>&1");
  while (output.ends_with('\n')) output.pop_back();
  return output;
}

std::string Source(const std::string& server, const std::string& table, const std::string& more,
                   const std::string& filter) {
  return Escaped("service='brelmon_" + server + "' user='owner' " + more + " table=\"public\".\"" +
                 table + "\" sql=" + filter);
}

headless::LayerXml TableOn(const std::string& server, const std::string& table,
                           const std::string& more, const std::string& filter) {
  headless::LayerXml layer{table, Source(server, table, more, filter)};
  layer.provider = "postgres";
  layer.geometry = "No geometry";
  return layer;
}

void WriteModule(const TempFolder& folder, const std::vector<headless::LayerXml>& layers) {
  std::string tree;
  for (const auto& layer : layers) tree += headless::TreeLayer(layer.id);
  folder.Write("map.qgs", headless::ProjectXml(tree, layers));
}

}  // namespace brelmon::servers::test
