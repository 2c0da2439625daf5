// SPDX-License-Identifier: GPL-2.0-or-later
// What every host must do alike, as cases over the sample module. No test framework is used: a
// case throws where the host falls short, so that it can run inside any host's process.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/map.h"
#include "platform/services.h"

namespace brelmon::contract {

/// A host in which a case's module is open. Each case gets one in the state in which it was opened:
/// the host's own runner sees to that.
class World {
 public:
  virtual ~World() = default;
  virtual Ref<IApplication> Application() = 0;
  virtual Ref<IMxDocument> Document() = 0;
  virtual IHostObjects& Objects() = 0;
  virtual IFileSystem& Files() = 0;
  /// The contents view's tab in front and the items selected in it.
  virtual void SetTab(const Text& name) = 0;
  virtual void Pick(const std::vector<Ref<IObject>>& items) = 0;
  /// Selected graphics of the focus map, as well-known texts in its reference system.
  virtual void SetGraphics(const std::vector<std::string>& wkts) = 0;
};

/// The map document of a case's module, from the repository's root.
inline constexpr const char* kSample = "samples/earth/earth.qgs";
/// The same eight rows as a shapefile, dBASE table, GeoJSON, GeoPackage and delimited text.
inline constexpr const char* kKinds = "tests/contract/kinds/kinds.qgs";

/// Those rows on a server, and partitioned over two others; tests/servers starts them.
inline constexpr const char* kServers = "tests/contract/servers/servers.qgs";

struct Case {
  std::string name;
  std::function<void(World&)> run;
  std::string module = kSample;
  /// It needs no more of the sample than names of layers, tables and fields, so that a world in
  /// memory can be held to it, too.
  bool anyWorld = false;
  /// It opens data that it wrote: a page has none but what was published.
  bool newData = false;
};

inline Case AnyWorld(std::string name, std::function<void(World&)> run) {
  return {std::move(name), std::move(run), kSample, true};
}

/// All that need no server, names unique.
std::vector<Case> AllCases();
/// Those that do.
std::vector<Case> ServerCases();

std::vector<Case> ContentsCases();
std::vector<Case> FieldCases();
std::vector<Case> RowCases();
std::vector<Case> SelectionCases();
std::vector<Case> MapCases();
std::vector<Case> KindCases();
std::vector<Case> WorldCases();

// Tools of the cases.

inline void Expect(bool holds, const std::string& what) {
  if (!holds) throw std::runtime_error(what);
}

inline std::string Shown(const Text& text) { return ToUtf8(text); }
inline std::string Shown(const std::string& text) { return text; }
inline std::string Shown(double number) { return std::to_string(number); }
inline std::string Shown(std::int32_t number) { return std::to_string(number); }

template <class A, class B>
void ExpectEqual(const A& is, const B& due, const std::string& what) {
  if (!(is == A(due))) {
    throw std::runtime_error(what + ": " + Shown(is) + " instead of " + Shown(A(due)));
  }
}

/// Runs `body`, which must fail with `number`, out of the host.
void ExpectFailure(std::int32_t number, const std::function<void()>& body, const std::string& what,
                   TextView source = u"Brelmon host");

/// Of the document, as a Windows path with its closing separator.
Text ModuleFolder(World& world);
/// By name in the focus map; failing that, the case fails.
Ref<ILayer> LayerNamed(World& world, const Text& name);
Ref<IStandaloneTable> TableNamed(World& world, const Text& name);
Ref<IQueryFilter> Where(const Text& clause, const Text& subFields = {});
std::int32_t RowsOf(const Ref<ICursor>& cursor);
/// The value of a field, by name, in the first row under a clause.
Value FirstValue(const Ref<IObject>& table, const Text& field, const Text& clause);

}  // namespace brelmon::contract
