// SPDX-License-Identifier: GPL-2.0-or-later
// Frames from a project's tree, the focus, the contents selection.
#include "hosts/headless/document.h"

#include <algorithm>
#include <array>

#include "hosts/common/hostfailure.h"
#include "hosts/common/objectlists.h"
#include "hosts/headless/layerfactory.h"
#include "hosts/headless/rasterlayer.h"
#include "hosts/headless/shape.h"
#include "hosts/headless/table.h"

namespace brelmon::headless {
namespace {

/// One selection for all views of a document.
struct ContentsSelection {
  std::vector<Ref<IObject>> items;

  /// Unset, the one item, or a set of them.
  Ref<IObject> Item() const {
    if (items.empty()) return {};
    return items.size() == 1 ? items[0] : Ref<IObject>(host::NewSet(items));
  }
};

class ContentsViewObject : public IContentsView {
 public:
  ContentsViewObject(Text name, std::shared_ptr<ContentsSelection> selection)
      : name_(std::move(name)), selection_(std::move(selection)) {}
  Text Name() override { return name_; }
  Value SelectedItem() override {
    const Ref<IObject> item = selection_->Item();
    return item ? Value(item) : Value(Null());
  }
  void RemoveFromSelectedItems(const Ref<IObject>& item) override {
    std::erase_if(selection_->items, [&](const Ref<IObject>& one) { return Same(one, item); });
  }
  void Refresh(const Ref<IObject>&) override {}

 private:
  Text name_;
  std::shared_ptr<ContentsSelection> selection_;
};

class CommandBarsObject : public ICommandBars {
 public:
  explicit CommandBarsObject(CommandFinder find) : find_(std::move(find)) {}
  Ref<ICommandItem> Find(const Ref<UID>& uid) override {
    return find_ ? find_(uid->Value) : Ref<ICommandItem>();
  }

 private:
  CommandFinder find_;
};

/// The frames of a document. A frame may outlive it and then has nobody to tell.
struct Frames {
  std::vector<Ref<IMap>> maps;

  bool Holds(const Ref<IMap>& map) const {
    return std::any_of(maps.begin(), maps.end(),
                       [&](const Ref<IMap>& one) { return Same(one, map); });
  }
  /// An item that stands in no frame any more is gone.
  void Removed(const Ref<IObject>& item) const {
    const Ref<IHostTable> table = item.TryAs<IHostTable>();
    if (!table) return;
    const bool held = std::any_of(maps.begin(), maps.end(), [&](const Ref<IMap>& map) {
      const std::vector<TreeItem> items = map.As<IDataFrame>()->Items();
      return std::any_of(items.begin(), items.end(),
                         [&](const TreeItem& one) { return Same(one.object, item); });
    });
    table->SetGone(!held);
  }
};

class MapDocument : public IMxDocument,
                    public IDocument,
                    public IMaps,
                    public IUserDocument,
                    public std::enable_shared_from_this<MapDocument> {
 public:
  MapDocument(const Project& project, CommandFinder commands)
      : commands_(New<CommandBarsObject>(std::move(commands))),
        crs_(ReferenceSystemOf(project.crs)) {
    const std::array<TextView, 3> tabs = {u"Display", u"Source", u"Selection"};
    for (const TextView tab : tabs) {
      views_.push_back(New<ContentsViewObject>(Text(tab), selection_));
    }
    view_ = views_[0];
    for (const TreeNode& frame : DataFrames(project))
      frames_->maps.push_back(MakeFrame(project, frame));
    focus_ = frames_->maps[0];
    const auto visible =
        std::find_if(frames_->maps.begin(), frames_->maps.end(),
                     [](const Ref<IMap>& map) { return map.As<IDataFrame>()->Visible(); });
    if (visible != frames_->maps.end()) focus_ = *visible;
    if (project.extent) {
      const auto& [xMin, yMin, xMax, yMax] = *project.extent;
      OGREnvelope extent;
      extent.MinX = xMin, extent.MinY = yMin, extent.MaxX = xMax, extent.MaxY = yMax;
      focus_.As<IDataFrame>()->SetExtent(extent);
    }
  }

  // Document.
  Ref<ICommandBars> CommandBars() override { return commands_; }
  Ref<IMap> FocusMap() override { return focus_; }
  Ref<IActiveView> ActiveView() override { return focus_.As<IActiveView>(); }
  void SetActiveView(const Ref<IActiveView>& view) override {
    const auto hit = std::find_if(frames_->maps.begin(), frames_->maps.end(),
                                  [&](const Ref<IMap>& map) { return Same(map, view); });
    if (hit == frames_->maps.end()) {
      host::Fail(failure::kInvalidCall, "The view is none of the document's data frames.");
    }
    // What is selected in another frame is out of the user's sight from now on.
    if (!Same(focus_, *hit)) selection_->items = {hit->As<IObject>()};
    focus_ = *hit;
  }
  Ref<IMaps> Maps() override { return {shared_from_this()}; }
  Ref<IContentsView> CurrentContentsView() override { return view_; }
  void SetCurrentContentsView(const Ref<IContentsView>& view) override {
    if (!view) host::Fail(failure::kObjectNotSet);
    view_ = view;
  }
  Ref<IContentsView> ContentsView(std::int32_t index) override {
    if (index < 0 || static_cast<std::size_t>(index) >= views_.size()) {
      host::Fail(failure::kSubscript);
    }
    return views_[static_cast<std::size_t>(index)];
  }
  Ref<IObject> SelectedItem() override { return selection_->Item(); }
  void UpdateContents() override {}

  // Frames.
  std::int32_t Count() override { return static_cast<std::int32_t>(frames_->maps.size()); }
  Ref<IMap> Item(std::int32_t index) override {
    if (index < 0 || index >= Count()) host::Fail(failure::kSubscript);
    return frames_->maps[static_cast<std::size_t>(index)];
  }
  Ref<IMap> Create() override { return NewFrame(u"", true, true); }
  void Add(const Ref<IMap>& map) override {
    if (!map) host::Fail(failure::kObjectNotSet);
    if (!frames_->Holds(map)) frames_->maps.push_back(map);
  }
  void Remove(const Ref<IMap>& map) override {
    if (!map) host::Fail(failure::kObjectNotSet);
    std::erase_if(frames_->maps, [&](const Ref<IMap>& one) { return Same(one, map); });
    if (const auto frame = map.TryAs<IDataFrame>()) {
      for (const TreeItem& item : frame->Items()) frames_->Removed(item.object);
    }
    if (Same(focus_, map)) focus_ = frames_->maps.empty() ? Ref<IMap>() : frames_->maps[0];
  }

  // The user.
  bool SetTab(const Text& name) override {
    for (const Ref<IContentsView>& view : views_) {
      if (view->Name() != name) continue;
      view_ = view;
      return true;
    }
    return false;
  }
  void Pick(std::vector<Ref<IObject>> items) override { selection_->items = std::move(items); }

 private:
  Ref<IMap> NewFrame(Text name, bool visible, bool expanded) {
    FrameSettings settings;
    settings.name = std::move(name);
    settings.visible = visible;
    settings.expanded = expanded;
    settings.crs = crs_;
    settings.removed = [frames = std::weak_ptr<Frames>(frames_)](const Ref<IObject>& item) {
      if (const auto held = frames.lock()) held->Removed(item);
    };
    return NewDataFrame(std::move(settings));
  }

  Ref<IMap> MakeFrame(const Project& project, const TreeNode& node) {
    const Ref<IMap> map = NewFrame(FromUtf8(node.name), node.checked, node.expanded);
    Fill(project, node, *map.As<IDataFrame>(), {});
    return map;
  }

  void Fill(const Project& project, const TreeNode& node, IDataFrame& frame,
            const Ref<IObject>& group) {
    for (const TreeNode& child : node.children) {
      if (child.layerId.empty()) {
        const Ref<IObject> inner = NewGroupLayer(FromUtf8(child.name));
        frame.Append(inner, group);
        Fill(project, child, frame, inner);
        continue;
      }
      const auto layer = project.layers.find(child.layerId);
      // The tree may name a layer that the project lost.
      if (layer == project.layers.end()) continue;
      LayerDefinition definition = layer->second;
      if (definition.name.empty()) definition.name = child.name;
      frame.Append(MakeLayer(definition, project.folder), group);
    }
  }

  Ref<ICommandBars> commands_;
  std::shared_ptr<const OGRSpatialReference> crs_;
  std::shared_ptr<ContentsSelection> selection_ = std::make_shared<ContentsSelection>();
  std::vector<Ref<IContentsView>> views_;
  Ref<IContentsView> view_;
  std::shared_ptr<Frames> frames_ = std::make_shared<Frames>();
  Ref<IMap> focus_;
};

}  // namespace

Ref<IMxDocument> NewDocument(const Project& project, CommandFinder commands) {
  return New<MapDocument>(project, std::move(commands));
}

}  // namespace brelmon::headless
