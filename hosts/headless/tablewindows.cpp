// SPDX-License-Identifier: GPL-2.0-or-later
// Windows that remember what they were told.
#include "hosts/headless/tablewindows.h"

#include <algorithm>

#include "hosts/common/hostfailure.h"

namespace brelmon::headless {

class TableWindows::List {
 public:
  class Window;
  std::vector<std::shared_ptr<Window>> windows;
};

class TableWindows::List::Window : public ITableWindow,
                                   public ITableWindow2,
                                   public std::enable_shared_from_this<Window> {
 public:
  explicit Window(std::weak_ptr<List> list) : list_(std::move(list)) {}
  const TableWindowInfo& Info() const { return info_; }

  Ref<ITableWindow> FindViaFeatureLayer(const Ref<IFeatureLayer>& layer, bool) override {
    return Find(layer);
  }
  Ref<ITableWindow> FindViaStandaloneTable(const Ref<IStandaloneTable>& table, bool) override {
    return Find(table);
  }
  void SetFeatureLayer(const Ref<IFeatureLayer>& layer) override {
    info_.item = layer;
    info_.ofLayer = true;
    info_.name = layer.As<ILayer>()->Name();
  }
  void SetStandaloneTable(const Ref<IStandaloneTable>& table) override {
    info_.item = table;
    info_.ofLayer = false;
    info_.name = table->Name();
  }
  void SetApplication(const Ref<IApplication>&) override {}
  void Show(bool show) override {
    if (!info_.item) host::Fail(failure::kObjectNotSet, "The table window is bound to nothing.");
    info_.visible = show;
    const auto list = list_.lock();
    if (!list || !show) return;
    if (std::find(list->windows.begin(), list->windows.end(), shared_from_this()) ==
        list->windows.end()) {
      list->windows.push_back(shared_from_this());
    }
  }
  void Unload() override {
    info_.visible = false;
    if (const auto list = list_.lock()) std::erase(list->windows, shared_from_this());
  }
  void SetTableSelectionAction(std::int32_t action) override { info_.selectionAction = action; }
  void SetLayerDisplay(bool flag) override { info_.layerDisplay = flag; }
  void SetTableDisplay(bool first, bool second) override {
    info_.tableDisplayFirst = first;
    info_.tableDisplaySecond = second;
  }

 private:
  template <class T>
  Ref<ITableWindow> Find(const Ref<T>& item) {
    const auto list = list_.lock();
    if (!list || !item) return {};
    for (const auto& window : list->windows) {
      if (Same(window->info_.item, item)) return Ref<ITableWindow>(window);
    }
    return {};
  }

  std::weak_ptr<List> list_;
  TableWindowInfo info_;
};

TableWindows::TableWindows() : list_(std::make_shared<List>()) {}
TableWindows::~TableWindows() = default;

Ref<ITableWindow> TableWindows::NewWindow() { return New<List::Window>(list_); }

std::vector<TableWindowInfo> TableWindows::Open() const {
  std::vector<TableWindowInfo> open;
  for (const auto& window : list_->windows) {
    open.push_back(window->Info());
    open.back().window = Ref<ITableWindow>(window);
  }
  return open;
}

void TableWindows::Print(std::ostream& out) const {
  for (const TableWindowInfo& info : Open()) {
    out << "table window: " << ToUtf8(info.name) << (info.ofLayer ? " (layer)" : " (table)")
        << (info.visible ? "" : ", hidden") << '\n';
  }
}

}  // namespace brelmon::headless
