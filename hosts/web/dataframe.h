// SPDX-License-Identifier: GPL-2.0-or-later
// A data frame: one map with its tree of layers and tables.
#pragma once

#include <functional>

#include "hosts/web/graphics.h"
#include "hosts/web/items.h"

namespace brelmon::web {

struct TreeItem {
  Ref<IObject> object;  // an IItem
  int depth = 0;
};

/// What this host's frames offer beside IMap, IStandaloneTableCollection and IActiveView.
class IDataFrame : public virtual IObject {
 public:
  virtual int Id() const = 0;
  virtual bool Visible() const = 0;
  virtual void SetVisible(bool visible) = 0;
  virtual bool Expanded() const = 0;
  /// In tree order, each below the nearest before it of less depth.
  virtual const std::vector<TreeItem>& Items() const = 0;
  virtual void Append(const ModuleItem& item, const Sources& sources, int depth) = 0;
  virtual GraphicsLayer& Graphics() = 0;
  /// What the page shows of it; empty for the full extent.
  virtual const Bounds& Shown() const = 0;
  virtual void SetShown(const Bounds& box) = 0;
};

struct FrameSettings {
  Text name;
  bool visible = true, expanded = true;
  /// Told when an item has left the frame, when a tool has moved the view, and of any change.
  std::function<void(const Ref<IObject>&)> removed;
  std::function<void(IDataFrame&)> moved;
  std::function<void()> changed;
};

Ref<IMap> NewDataFrame(FrameSettings settings);

}  // namespace brelmon::web
