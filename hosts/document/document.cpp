// SPDX-License-Identifier: GPL-2.0-or-later
// Frames, the focus, the contents selection.
#include "hosts/document/document.h"

#include <algorithm>
#include <array>

#include "hosts/common/hostfailure.h"
#include "hosts/common/objectlists.h"
#include "hosts/document/table.h"

namespace brelmon::document {
namespace {

/// One selection for all views of a document.
struct ContentsSelection {
  std::vector<Ref<IObject>> items;
  std::function<void()> changed;

  void Changed() const {
    if (changed) changed();
  }
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
    selection_->Changed();
  }
  void Refresh(const Ref<IObject>&) override { selection_->Changed(); }

 private:
  Text name_;
  std::shared_ptr<ContentsSelection> selection_;
};

class CommandBarsObject : public ICommandBars {
 public:
  explicit CommandBarsObject(std::function<Ref<ICommandItem>(const Text&)> find)
      : find_(std::move(find)) {}
  Ref<ICommandItem> Find(const Ref<UID>& uid) override {
    return find_ ? find_(uid->Value) : Ref<ICommandItem>();
  }

 private:
  std::function<Ref<ICommandItem>(const Text&)> find_;
};

/// The frames of a document. A frame may outlive it and then has nobody to tell.
struct FrameList {
  std::vector<Ref<IMap>> maps;

  bool Holds(const Ref<IMap>& map) const {
    return std::any_of(maps.begin(), maps.end(),
                       [&](const Ref<IMap>& one) { return Same(one, map); });
  }
  /// An item that stands in no frame any more is gone.
  void Removed(const Ref<IObject>& item) const {
    const Ref<IMapMember> member = item.TryAs<IMapMember>();
    if (!member) return;
    const bool held = std::any_of(maps.begin(), maps.end(), [&](const Ref<IMap>& map) {
      const std::vector<TreeItem>& items = map.As<IDataFrame>()->Items();
      return std::any_of(items.begin(), items.end(),
                         [&](const TreeItem& one) { return Same(one.object, item); });
    });
    member->SetGone(!held);
  }
};

class MapDocument : public IMxDocument,
                    public IDocument,
                    public IMaps,
                    public IUserDocument,
                    public std::enable_shared_from_this<MapDocument> {
 public:
  MapDocument(DocumentSettings settings, const std::vector<FrameFacts>& frames, const Bounds& shown)
      : settings_(std::move(settings)), commands_(New<CommandBarsObject>(settings_.commands)) {
    selection_->changed = settings_.changed;
    for (const TextView tab : std::array<TextView, 3>{u"Display", u"Source", u"Selection"}) {
      views_.push_back(New<ContentsViewObject>(Text(tab), selection_));
    }
    view_ = views_[0];
    for (const FrameFacts& facts : frames) {
      const Ref<IMap> map = NewFrame(facts.name, facts.visible, facts.expanded);
      facts.fill(*map.As<IDataFrame>());
      frames_->maps.push_back(map);
    }
    focus_ = frames_->maps.at(0);
    const auto visible =
        std::find_if(frames_->maps.begin(), frames_->maps.end(),
                     [](const Ref<IMap>& map) { return map.As<IDataFrame>()->Visible(); });
    if (visible != frames_->maps.end()) focus_ = *visible;
    focus_.As<IDataFrame>()->SetShown(shown);
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
    if (settings_.activated) settings_.activated(*focus_.As<IDataFrame>());
    Changed();
  }
  Ref<IMaps> Maps() override { return {shared_from_this()}; }
  Ref<IContentsView> CurrentContentsView() override { return view_; }
  void SetCurrentContentsView(const Ref<IContentsView>& view) override {
    if (!view) host::Fail(failure::kObjectNotSet);
    view_ = view;
    Changed();
  }
  Ref<IContentsView> ContentsView(std::int32_t index) override {
    if (index < 0 || static_cast<std::size_t>(index) >= views_.size()) {
      host::Fail(failure::kSubscript);
    }
    return views_[static_cast<std::size_t>(index)];
  }
  Ref<IObject> SelectedItem() override { return selection_->Item(); }
  void UpdateContents() override { Changed(); }

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
    Changed();
  }
  void Remove(const Ref<IMap>& map) override {
    if (!map) host::Fail(failure::kObjectNotSet);
    std::erase_if(frames_->maps, [&](const Ref<IMap>& one) { return Same(one, map); });
    if (const auto frame = map.TryAs<IDataFrame>()) {
      for (const TreeItem& item : frame->Items()) frames_->Removed(item.object);
    }
    if (Same(focus_, map)) focus_ = frames_->maps.empty() ? Ref<IMap>() : frames_->maps[0];
    Changed();
  }

  // The user.
  const std::vector<Ref<IMap>>& Frames() const override { return frames_->maps; }
  bool SetTab(const Text& name) override {
    for (const Ref<IContentsView>& view : views_) {
      if (view->Name() != name) continue;
      SetCurrentContentsView(view);
      return true;
    }
    return false;
  }
  void Pick(std::vector<Ref<IObject>> items) override {
    selection_->items = std::move(items);
    Changed();
  }
  const std::vector<Ref<IObject>>& Picked() const override { return selection_->items; }

 private:
  void Changed() const { selection_->Changed(); }

  Ref<IMap> NewFrame(Text name, bool visible, bool expanded) {
    FrameSettings facts;
    facts.name = std::move(name);
    facts.visible = visible;
    facts.expanded = expanded;
    facts.changed = settings_.changed;
    facts.removed = [frames = std::weak_ptr<FrameList>(frames_)](const Ref<IObject>& item) {
      if (const auto held = frames.lock()) held->Removed(item);
    };
    return settings_.makeFrame(std::move(facts));
  }

  DocumentSettings settings_;
  Ref<ICommandBars> commands_;
  std::shared_ptr<ContentsSelection> selection_ = std::make_shared<ContentsSelection>();
  std::vector<Ref<IContentsView>> views_;
  Ref<IContentsView> view_;
  std::shared_ptr<FrameList> frames_ = std::make_shared<FrameList>();
  Ref<IMap> focus_;
};

}  // namespace

Ref<IMxDocument> NewDocument(DocumentSettings settings, const std::vector<FrameFacts>& frames,
                             const Bounds& shown) {
  return New<MapDocument>(std::move(settings), frames, shown);
}

}  // namespace brelmon::document
