// SPDX-License-Identifier: GPL-2.0-or-later
// A data frame: one map with its tree of layers and tables.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "hosts/document/bounds.h"
#include "hosts/document/graphics.h"
#include "platform/map.h"

namespace brelmon::document {

/// An item of a frame's tree.
struct TreeItem {
  Ref<IObject> object;  // ILayer (group, raster, feature layer) or IStandaloneTable
  int depth = 0;
};

/// What frames offer beside IMap, IStandaloneTableCollection and IActiveView.
class IDataFrame : public virtual IObject {
 public:
  /// In tree order, each below the nearest before it of less depth.
  virtual const std::vector<TreeItem>& Items() const = 0;
  virtual bool Visible() const = 0;
  virtual void SetVisible(bool visible) = 0;
  virtual bool Expanded() const = 0;
  /// Behind what stands below the group, or behind everything. Objects without an interface of
  /// ILayer or IStandaloneTable stand nowhere.
  virtual void Append(const Ref<IObject>& item, const Ref<IObject>& group) = 0;
  /// What is looked at; empty for all of it.
  virtual const Bounds& Shown() const = 0;
  virtual void SetShown(const Bounds& box) = 0;
  /// Selected graphics, as well-known texts in the frame's reference system. Throws
  /// std::runtime_error for a text that is none, and changes nothing then.
  virtual void SetGraphics(const std::vector<std::string>& wkts) = 0;
};

struct FrameSettings {
  Text name;
  bool visible = true, expanded = true;
  /// Told when an item has left the frame, and of any change.
  std::function<void(const Ref<IObject>&)> removed;
  std::function<void()> changed;
};

class DataFrame : public IDataFrame,
                  public IMap,
                  public IStandaloneTableCollection,
                  public IActiveView,
                  public IDisplay,
                  public IDisplayTransformation,
                  public std::enable_shared_from_this<DataFrame> {
 public:
  explicit DataFrame(FrameSettings settings) : settings_(std::move(settings)) {}

  // Tree.
  const std::vector<TreeItem>& Items() const override { return items_; }
  bool Visible() const override { return settings_.visible; }
  void SetVisible(bool visible) override;
  bool Expanded() const override { return settings_.expanded; }
  void Append(const Ref<IObject>& item, const Ref<IObject>& group) override;
  const Bounds& Shown() const override { return shown_; }
  void SetShown(const Bounds& box) override { shown_ = box; }
  void SetGraphics(const std::vector<std::string>& wkts) override;

  // Map.
  Text Name() override { return settings_.name; }
  void SetName(const Text& name) override;
  std::int32_t LayerCount() override;
  Ref<IEnumLayer> Layers(const Ref<UID>& uid, bool recursive) override;
  void AddLayer(const Ref<ILayer>& layer) override;
  void DeleteLayer(const Ref<ILayer>& layer) override { Take(Find(layer)); }
  void SetExpanded(bool expanded) override;
  Ref<IGraphicsContainerSelect> ActiveGraphicsLayer() override { return {graphics_}; }

  // Tables.
  std::int32_t StandaloneTableCount() override;
  Ref<IStandaloneTable> StandaloneTable(std::int32_t index) override;
  void AddStandaloneTable(const Ref<IStandaloneTable>& table) override;
  void RemoveStandaloneTable(const Ref<IStandaloneTable>& table) override { Take(Find(table)); }

  // View.
  void PartialRefresh(DrawPhase, const Ref<IObject>&, const Ref<IEnvelope>&) override { Changed(); }
  void Refresh() override { Changed(); }
  Ref<IEnvelope> Extent() override;
  Ref<IEnvelope> FullExtent() override;
  Ref<IDisplay> ScreenDisplay() override { return {shared_from_this()}; }
  Ref<IDisplayTransformation> DisplayTransformation() override { return {shared_from_this()}; }
  void SetVisibleBounds(const Ref<IEnvelope>& bounds) override;

 protected:
  // The host's part.
  /// Of all that has shapes and can be reached, in the frame's reference system.
  virtual Bounds WholeExtent() const = 0;
  /// Throws std::runtime_error.
  virtual Ref<IGeometry> GeometryOf(const std::string& wkt) const = 0;
  /// A tool has moved the view.
  virtual void Moved() {}

 private:
  void Changed() const {
    if (settings_.changed) settings_.changed();
  }
  void Joined(const Ref<IObject>& item) const;
  std::vector<Ref<IStandaloneTable>> Tables() const;
  std::size_t Find(const Ref<IObject>& object) const;
  std::size_t End(std::size_t at) const;
  void Take(std::size_t at);

  FrameSettings settings_;
  std::vector<TreeItem> items_;
  std::shared_ptr<GraphicsLayer> graphics_ = std::make_shared<GraphicsLayer>();
  Bounds shown_;
};

}  // namespace brelmon::document
