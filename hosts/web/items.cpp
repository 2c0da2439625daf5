// SPDX-License-Identifier: GPL-2.0-or-later
// Layers and tables over published rows, and items without rows.
#include "hosts/web/items.h"

#include "hosts/common/hostfailure.h"
#include "hosts/common/paths.h"
#include "hosts/document/table.h"
#include "hosts/web/graphics.h"
#include "hosts/web/item.h"

namespace brelmon::web {
namespace {

std::function<void()>& Listener() {
  static std::function<void()> listener;
  return listener;
}

document::TableSettings SettingsOf(const ModuleItem& item) {
  document::TableSettings settings;
  settings.name = FromUtf8(item.name);
  settings.definition = FromUtf8(item.definition);
  for (const auto& [field, alias] : item.aliases) {
    settings.aliases[FromUtf8(field)] = FromUtf8(alias);
  }
  for (const std::string& field : item.hidden) settings.hiddenFields.insert(FromUtf8(field));
  return settings;
}

class Table : public Item, public ITableItem, public document::Table {
 public:
  Table(const ModuleItem& facts, std::shared_ptr<Source> source)
      : Item(facts), document::Table(SettingsOf(facts)), source_(std::move(source)) {}

  // The page.
  Text ShownName() override { return Settings().name; }
  const std::shared_ptr<Source>& Data() override { return source_; }
  int Revision() const override { return revision_; }
  const columns::RowIds& Selected() override { return SelectedIds(); }
  Text Definition() override { return Settings().definition; }
  void Select(columns::RowIds ids, SelectionMethod method) override {
    Combine(std::move(ids), method);
  }

 protected:
  std::shared_ptr<columns::IRowSource> RowsOfData() const override { return source_; }
  bool HasReachedData() const override { return source_->Valid(); }
  void ReachData() override { source_->Table(); }
  bool HasShapes() const override { return source_->Facts().hasShapes; }
  columns::RowIds IdsMeeting(const Ref<IGeometry>& geometry, const Text& clause,
                             bool justOne) override {
    const Ref<ShapeObject> shape = geometry.As<ShapeObject>();
    const ShapeStore& shapes = source_->Table().shapes;
    columns::RowIds ids;
    for (const std::int64_t id : source_->IdsOfRows(clause, false)) {
      const std::size_t row = source_->PlaceOf(id);
      if (row >= shapes.Size() || !Intersects(shapes, row, shape->Store, 0)) continue;
      ids.push_back(id);
      if (justOne) break;
    }
    return ids;
  }
  Place DataPlace() const override {
    const SourceFacts& facts = source_->Facts();
    const auto system = [](const std::string& path) {
      return host::Paths().ToSystem(FromUtf8(path)).value_or(path);
    };
    return {system(facts.workspace), system(facts.path), FromUtf8(facts.kind),
            FromUtf8(facts.table)};
  }
  void Changed() override {
    ++revision_;
    TellChange();
  }
  void Bind(const Ref<ITable>& table) {
    const Ref<ITableItem> other = table.As<ITableItem>();
    if (!other) host::Fail(failure::kObjectNotSet);
    source_ = other->Data();
  }

 private:
  std::shared_ptr<Source> source_;
  int revision_ = 0;
};

using FeatureLayer = document::FeatureLayerOver<Table>;
using StandaloneTable = document::StandaloneTableOver<Table>;

}  // namespace

Ref<IObject> NewItem(const ModuleItem& item, const Sources& sources) {
  if (item.kind != "layer" && item.kind != "table") return New<PlainLayer>(item);
  const auto known = sources.find(item.source);
  std::shared_ptr<Source> source;
  if (known != sources.end()) {
    source = known->second;
  } else {
    SourceFacts facts;
    facts.problem = "the module has no source \"" + item.source + "\"";
    source = std::make_shared<Source>(std::move(facts));
  }
  if (item.kind == "layer") return New<FeatureLayer>(item, source);
  return New<StandaloneTable>(item, source);
}

Ref<IStandaloneTable> NewStandaloneTable() {
  ModuleItem item;
  item.kind = "table";
  return New<StandaloneTable>(item, nullptr);
}

Ref<ITable> OpenTable(const std::string& systemPath, const Sources& sources) {
  ModuleItem item;
  item.kind = "table";
  const auto source = SourceOfDbf(systemPath, sources);
  item.name = source->Facts().table;
  return New<Table>(item, source);
}

void TellChange() {
  if (Listener()) Listener()();
}

int NextItemId() {
  static int last = 0;
  return ++last;
}

void SetItemListener(std::function<void()> changed) { Listener() = std::move(changed); }

}  // namespace brelmon::web
