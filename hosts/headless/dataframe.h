// SPDX-License-Identifier: GPL-2.0-or-later
// A data frame: one map with its tree of layers and tables.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/map.h"

class OGREnvelope;
class OGRSpatialReference;

namespace brelmon::headless {

/// An item of a frame's tree in tree order, for listings and for finding items by name.
struct TreeItem {
  Ref<IObject> object;  // ILayer (group, raster, feature layer) or IStandaloneTable
  int depth = 0;
};

/// What this host's frames offer beside IMap, IStandaloneTableCollection and IActiveView.
class IDataFrame : public virtual IObject {
 public:
  virtual std::vector<TreeItem> Items() = 0;
  virtual bool Visible() = 0;
  virtual bool Expanded() = 0;
  virtual std::shared_ptr<const OGRSpatialReference> ReferenceSystem() = 0;
  /// Well-known texts in the frame's reference system. Throws std::runtime_error for a text that
  /// is none, and changes nothing then.
  virtual void SetGraphics(const std::vector<std::string>& wkts) = 0;
  /// Under the items of a project's tree. Objects without an interface of ILayer or
  /// IStandaloneTable stand nowhere.
  virtual void Append(const Ref<IObject>& item, const Ref<IObject>& group) = 0;
  virtual void SetExtent(const OGREnvelope& extent) = 0;
};

struct FrameSettings {
  Text name;
  bool visible = true;
  bool expanded = true;
  std::shared_ptr<const OGRSpatialReference> crs;
  /// Told when an item has left the frame, so that whoever holds the frames can look for it.
  std::function<void(const Ref<IObject>&)> removed;
};

Ref<IMap> NewDataFrame(FrameSettings settings);

}  // namespace brelmon::headless
