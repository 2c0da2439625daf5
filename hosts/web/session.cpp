// SPDX-License-Identifier: GPL-2.0-or-later
// Questions and deeds, each a row of a table.
#include "hosts/web/session.h"

#include <fstream>
#include <iterator>

#include "hosts/common/paths.h"
#include "hosts/web/browserlocale.h"
#include "hosts/web/contents.h"
#include "hosts/web/formviews.h"
#include "hosts/web/layerview.h"
#include "hosts/web/page.h"

namespace brelmon::web {
namespace {

SelectionMethod MethodOf(const std::string& name) {
  if (name == "add") return SelectionMethod::Add;
  if (name == "switch") return SelectionMethod::Xor;
  return SelectionMethod::New;
}

std::string WholeFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace

void Session::Open(const Message& settings) {
  if (const auto now = host::ParseIsoTime(settings.Utf8At("now"))) host_.Clock().Fix(now);
  host_.Open(LocaleOf(settings));
  component_ = std::make_unique<Component>(host_.HostServices());
  toolbar_ = std::make_unique<Toolbar>(*component_, host_.Application());
}

Ref<ITableItem> Session::TableOf(const Message& message) const {
  const int window = message.IntAt("window", 0);
  const Ref<IObject> item =
      window > 0 ? host_.Tables().ItemOf(window) : host_.ItemOf(message.IntAt("item"));
  const auto table = item.TryAs<ITableItem>();
  return table && table->Data() && table->Data()->Valid() ? table : Ref<ITableItem>();
}

std::string Session::Ask(const std::string& what, const Message& message) {
  if (what == "form") return FormChanges(message.IntAt("name"));
  if (what == "rows") return Rows(message);
  if (what == "shapes") return Shapes(message);
  if (what == "file") return FileBytes(message);
  Json json;
  json.Begin();
  if (what == "toolbar") toolbar_->Describe(json);
  if (what == "contents") DescribeContents(*host_.Document(), json);
  if (what == "live") json.Put("objects", static_cast<std::int32_t>(LiveObjects()));
  return json.End().Written();
}

std::string Session::Rows(const Message& message) {
  const auto table = TableOf(message);
  if (!table) return "null";
  Json json;
  json.Begin();
  rows_.Describe(*table, json);
  rows_.Describe(message.IntAt("window"), *table,
                 static_cast<std::size_t>(message.NumberAt("first")),
                 static_cast<std::size_t>(message.NumberAt("count")), json);
  return json.End().Written();
}

std::string Session::Shapes(const Message& message) {
  const auto layer = host_.ItemOf(message.IntAt("item")).TryAs<ITableItem>();
  if (!layer) return "null";
  Json json;
  json.Begin();
  DescribeShapes(*layer, json);
  return json.End().Written();
}

std::string Session::FileBytes(const Message& message) {
  const std::string path = message.Utf8At("path");
  if (!host::FileExists(path)) return "null";
  lent_ = WholeFile(path);
  return Json()
      .Begin()
      .Put("at", reinterpret_cast<std::size_t>(lent_.data()))
      .Put("size", lent_.size())
      .End()
      .Written();
}

void Session::Do(const std::string& what, const Message& message) {
  if (what == "form") return FormEvent(message);
  if (what == "click") return toolbar_->Click(message.TextAt("class"));
  if (what == "enabled") return toolbar_->TellEnabled();
  if (what == "pick") return Pick(message);
  if (what == "focus") return Focus(message);
  if (what == "extent") return Extent(message);
  if (what == "select") return SelectRows(message);
  if (what == "select-box") return SelectInBox(message);
  if (what == "graphics") return host_.SetGraphics(message.TextsAt("shapes"));
  if (what == "add-table") return AddTable(message);
  if (what == "tab") {
    host_.User().SetTab(message.TextAt("name"));
  } else if (what == "check") {
    if (const auto item = host_.ItemOf(message.IntAt("item"))) {
      item.As<IItem>(0)->SetChecked(message.FlagAt("on"));
    }
  } else if (what == "sort") {
    rows_.Sort(message.IntAt("window"), message.IntAt("field", -1), message.FlagAt("descending"));
  } else if (what == "selected-only") {
    rows_.ShowSelectedOnly(message.IntAt("window"), message.FlagAt("on"));
  } else if (what == "close-table") {
    rows_.Forget(message.IntAt("window"));
    host_.Tables().Close(message.IntAt("window"));
  }
}

/// An item of another frame than the one in focus brings its frame there.
void Session::Pick(const Message& message) {
  std::vector<Ref<IObject>> items;
  Ref<IMap> frame;
  bool several = false;
  for (const double id : message.NumbersAt("items")) {
    const Ref<IObject> item = host_.ItemOf(static_cast<int>(id));
    if (!item) continue;
    items.push_back(item);
    for (const Ref<IMap>& map : host_.User().Frames()) {
      for (const document::TreeItem& one : map.As<document::IDataFrame>()->Items()) {
        if (!Same(one.object, item)) continue;
        several = several || (frame && !Same(frame, map));
        frame = map;
      }
    }
  }
  if (frame && !several && !Same(frame, host_.Document()->FocusMap())) {
    host_.Document()->SetActiveView(frame.As<IActiveView>(0));
  }
  host_.User().Pick(std::move(items));
}

void Session::Focus(const Message& message) {
  const Ref<IMap> frame = host_.FrameOf(message.IntAt("frame"));
  if (!frame) return;
  host_.Document()->SetActiveView(frame.As<IActiveView>(0));
  host_.User().Pick({});
}

void Session::Extent(const Message& message) {
  const Ref<IMap> frame = host_.FrameOf(message.IntAt("frame"));
  const std::vector<double> box = message.NumbersAt("box");
  if (!frame || box.size() != 4) return;
  Bounds shown;
  shown.Add(box[0], box[1]);
  shown.Add(box[2], box[3]);
  frame.As<document::IDataFrame>()->SetShown(shown);
}

void Session::SelectRows(const Message& message) {
  const auto table = TableOf(message);
  if (!table) return;
  const auto first = static_cast<std::size_t>(message.NumberAt("first"));
  const auto last = static_cast<std::size_t>(message.NumberAt("last"));
  table->Select(rows_.IdsAt(message.IntAt("window"), *table, first, last),
                MethodOf(message.Utf8At("method")));
}

/// The shapes of a layer that meet a box, as with a click or a frame drawn on a map.
void Session::SelectInBox(const Message& message) {
  const auto table = TableOf(message);
  const std::vector<double> box = message.NumbersAt("box");
  if (!table || box.size() != 4) return;
  ShapeStore frame;
  for (const auto& [x, y] : {std::pair{0, 1}, {2, 1}, {2, 3}, {0, 3}, {0, 1}}) {
    frame.AddPoint(box[static_cast<std::size_t>(x)], box[static_cast<std::size_t>(y)]);
  }
  frame.EndPart();
  frame.EndShape(ShapeKind::Polygons);
  const ColumnTable& rows = table->Data()->Table();
  columns::RowIds ids;
  for (const std::int64_t id : table->Data()->IdsOfRows(table->Definition(), false)) {
    const std::size_t row = table->Data()->PlaceOf(id);
    if (row < rows.shapes.Size() && Intersects(rows.shapes, row, frame, 0)) ids.push_back(id);
  }
  table->Select(std::move(ids), MethodOf(message.Utf8At("method")));
}

/// A summary table of stored work.
void Session::AddTable(const Message& message) {
  const Ref<IStandaloneTable> table = NewStandaloneTable();
  table->SetTable(OpenTable(message.Utf8At("path"), host_.AllSources()));
  host_.Document()->FocusMap().As<IStandaloneTableCollection>(0)->AddStandaloneTable(table);
}

}  // namespace brelmon::web
