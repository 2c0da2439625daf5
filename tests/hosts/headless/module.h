// SPDX-License-Identifier: GPL-2.0-or-later
// Small modules of a test's own: project files and data, written where the test wants them.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "frame/guard.h"
#include "hosts/headless/headlesshost.h"
#include "tests/hosts/tempfolder.h"

namespace brelmon::headless {

/// A layer of the project; `extra` goes inside of its element.
struct LayerXml {
  std::string id, source;
  std::string provider = "ogr", geometry = "Point", extra = {}, encoding = {};
};

/// <layer-tree-layer> for an id.
std::string TreeLayer(const std::string& id);
/// A project file's text: the inside of its tree, then its layers.
std::string ProjectXml(const std::string& tree, const std::vector<LayerXml>& layers,
                       const std::string& crs = "EPSG:4326");

class Module : public TempFolder {
 public:
  /// Opens a project whose tree holds the layers in order.
  HeadlessHost& Open(const std::vector<LayerXml>& layers, const std::string& crs = "EPSG:4326");
  Ref<ILayer> Layer(const Text& name) const;
  Ref<IStandaloneTable> Table(const Text& name) const;

 private:
  Ref<IObject> Item(const Text& name) const;
  std::unique_ptr<HeadlessHost> host_;
};

/// A GeoPackage with the point table "sites" (fid, geom, NAME, BIG, SMALL, WHEN), three rows.
void MakeGeoPackage(const std::string& path);
/// A shapefile of points: N9, N10 and N4.1 numbers, a text, a date; the third row is all null.
void MakeShapefile(const std::string& path);

/// The failure's number, 0 if there was none.
template <class Body>
std::int32_t NumberOf(Body body) {
  return Guard::Ignore(body);
}

}  // namespace brelmon::headless
