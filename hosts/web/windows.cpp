// SPDX-License-Identifier: GPL-2.0-or-later
// Windows that tell the page when they come and go.
#include "hosts/web/windows.h"

#include <algorithm>

#include "hosts/common/hostfailure.h"
#include "hosts/web/page.h"

namespace brelmon::web {

class TableWindows::List {
 public:
  std::vector<std::shared_ptr<Window>> windows;
};

class TableWindows::Window : public ITableWindow,
                             public ITableWindow2,
                             public std::enable_shared_from_this<Window> {
 public:
  explicit Window(std::weak_ptr<List> list) : list_(std::move(list)) {}
  int Name() const { return name_; }
  const Ref<IObject>& Item() const { return item_; }

  Ref<ITableWindow> FindViaFeatureLayer(const Ref<IFeatureLayer>& layer, bool) override {
    return Find(layer);
  }
  Ref<ITableWindow> FindViaStandaloneTable(const Ref<IStandaloneTable>& table, bool) override {
    return Find(table);
  }
  void SetFeatureLayer(const Ref<IFeatureLayer>& layer) override { item_ = layer; }
  void SetStandaloneTable(const Ref<IStandaloneTable>& table) override { item_ = table; }
  void SetApplication(const Ref<IApplication>&) override {}
  void Show(bool show) override {
    if (!item_) host::Fail(failure::kObjectNotSet, "The table window is bound to nothing.");
    const auto list = list_.lock();
    if (!list) return;
    if (show && !IsIn(*list)) list->windows.push_back(shared_from_this());
    Tell(Json()
             .Begin()
             .Put("what", "table")
             .Put("name", name_)
             .Put("item", item_.As<IItem>(0)->Id())
             .Put("title", item_.As<IItem>(0)->ShownName())
             .Put("shown", show)
             .End());
  }
  void Unload() override {
    const auto list = list_.lock();
    if (!list || !IsIn(*list)) return;
    const auto alive = shared_from_this();
    std::erase(list->windows, alive);
    Tell(Json().Begin().Put("what", "table-gone").Put("name", name_).End());
  }
  // Of a map application's windows alone.
  void SetTableSelectionAction(std::int32_t) override {}
  void SetLayerDisplay(bool) override {}
  void SetTableDisplay(bool, bool) override {}

 private:
  bool IsIn(const List& list) const {
    return std::any_of(list.windows.begin(), list.windows.end(),
                       [this](const auto& one) { return one.get() == this; });
  }
  template <class T>
  Ref<ITableWindow> Find(const Ref<T>& item) {
    const auto list = list_.lock();
    if (!list || !item) return {};
    for (const auto& window : list->windows) {
      if (Same(window->item_, item)) return Ref<ITableWindow>(window);
    }
    return {};
  }

  std::weak_ptr<List> list_;
  int name_ = NextName();
  Ref<IObject> item_;
};

TableWindows::TableWindows() : list_(std::make_shared<List>()) {}
TableWindows::~TableWindows() = default;

Ref<ITableWindow> TableWindows::NewWindow() {
  return Ref<ITableWindow>(std::make_shared<Window>(list_));
}

Ref<IObject> TableWindows::ItemOf(int name) const {
  for (const auto& window : list_->windows) {
    if (window->Name() == name) return window->Item();
  }
  return {};
}

void TableWindows::Close(int name) {
  const auto windows = list_->windows;
  for (const auto& window : windows) {
    if (window->Name() == name) window->Unload();
  }
}

}  // namespace brelmon::web
