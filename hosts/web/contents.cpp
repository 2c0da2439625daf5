// SPDX-License-Identifier: GPL-2.0-or-later
// The contents as JSON.
#include "hosts/web/contents.h"

#include <algorithm>

#include "hosts/web/dataframe.h"

namespace brelmon::web {
namespace {

void PutBox(Json& json, const char* key, const Bounds& box) {
  if (box.empty) return;
  json.Key(key).BeginArray().Add(box.xMin).Add(box.yMin).Add(box.xMax).Add(box.yMax).EndArray();
}

void DescribeTable(ITableItem& table, Json& json) {
  const Source* source = table.Data().get();
  json.Put("definition", table.Definition())
      .Put("selected", table.Selected().size())
      .Put("revision", std::int32_t{table.Revision()});
  if (source == nullptr) return;
  json.Put("source", source->Facts().kind).Put("path", source->Facts().path);
  if (source->Valid()) {
    json.Put("rows", source->Table().RowCount());
  } else {
    json.Put("problem", source->Facts().problem);
  }
  PutBox(json, "extent", source->Facts().extent);
}

void DescribeItem(const document::TreeItem& tree, bool picked, Json& json) {
  IItem& item = *tree.object.As<IItem>(0);
  const ModuleItem& facts = item.Facts();
  json.Begin()
      .Put("id", item.Id())
      .Put("depth", tree.depth)
      .Put("kind", facts.kind)
      .Put("name", item.ShownName())
      .Put("checked", item.Checked())
      .Put("expanded", facts.expanded)
      .Put("picked", picked);
  const auto layer = tree.object.TryAs<ILayer>();
  const auto standalone = tree.object.TryAs<IStandaloneTable>();
  json.Put("valid", layer ? layer->Valid() : standalone && standalone->Valid());
  if (!facts.symbols.json.empty()) json.Key("symbols").Raw(facts.symbols.json);
  if (const auto table = tree.object.TryAs<ITableItem>()) DescribeTable(*table, json);
  if (!facts.attribution.empty()) json.Put("attribution", facts.attribution);
  if (!facts.picture.empty()) {
    json.Put("picture", facts.picture).Put("opacity", facts.opacity);
    PutBox(json, "extent", facts.extent);
  }
  json.End();
}

}  // namespace

void DescribeContents(IMxDocument& document, Json& json) {
  auto& user = dynamic_cast<document::IUserDocument&>(document);
  json.Put("tab", document.CurrentContentsView()->Name());
  json.Key("frames").BeginArray();
  for (const Ref<IMap>& map : user.Frames()) {
    document::IDataFrame& frame = *map.As<document::IDataFrame>();
    json.Begin()
        .Put("id", FrameId(map))
        .Put("name", map->Name())
        .Put("focus", Same(map, document.FocusMap()))
        .Put("visible", frame.Visible())
        .Put("expanded", frame.Expanded());
    PutBox(json, "shown", frame.Shown());
    json.Key("items").BeginArray();
    for (const document::TreeItem& item : frame.Items()) {
      const auto& picked = user.Picked();
      DescribeItem(item,
                   std::any_of(picked.begin(), picked.end(),
                               [&](const auto& one) { return Same(one, item.object); }),
                   json);
    }
    json.EndArray().End();
  }
  json.EndArray();
}

}  // namespace brelmon::web
