// SPDX-License-Identifier: GPL-2.0-or-later
// Listing and finding.
#include "cli/items.h"

#include <algorithm>
#include <functional>
#include <optional>

#include "frame/documentmodel.h"
#include "hosts/headless/problem.h"
#include "hosts/headless/rasterlayer.h"

namespace brelmon::cli {
namespace {

std::string KindOf(const Ref<IObject>& object) {
  if (object.Offers<IFeatureLayer>()) return "feature layer";
  if (object.Offers<IStandaloneTable>()) return "table";
  if (object.Offers<headless::IGroupLayer>()) return "group";
  return "raster";
}

Text NameOf(const Ref<IObject>& object) {
  if (const auto table = object.TryAs<IStandaloneTable>()) return table->Name();
  return object.As<ILayer>()->Name();
}

/// The number behind '#'; nothing for any other word.
std::optional<std::size_t> NumberOf(const std::string& word) {
  if (word.size() < 2 || word.size() > 7 || word[0] != '#') return {};
  if (!std::all_of(word.begin() + 1, word.end(), [](char c) { return c >= '0' && c <= '9'; })) {
    return {};
  }
  return std::stoul(word.substr(1));
}

using Matches = std::function<bool(std::size_t position, bool exactly)>;

/// The one position that matches; exact matches hide the others.
std::size_t FindOne(std::size_t count, const std::string& word, const std::string& what,
                    const std::string& where, const Matches& matches) {
  if (const auto number = NumberOf(word)) {
    if (*number < 1 || *number > count) {
      throw Refusal("there is no " + what + " " + word + where + ": the numbers go from #1 to #" +
                    std::to_string(count));
    }
    return *number - 1;
  }
  for (const bool exactly : {true, false}) {
    std::vector<std::size_t> hits;
    for (std::size_t i = 0; i < count; ++i) {
      if (matches(i, exactly)) hits.push_back(i);
    }
    if (hits.size() == 1) return hits[0];
    if (hits.empty()) continue;
    std::string numbers;
    for (const std::size_t hit : hits) numbers += " #" + std::to_string(hit + 1);
    throw Refusal("the " + what + " \"" + word + "\"" + where +
                  " stands more than once: say which," + numbers);
  }
  throw Refusal("there is no " + what + " \"" + word + "\"" + where);
}

bool SameName(const Text& left, const Text& right, bool exactly) {
  return exactly ? left == right : EqualNoCase(left, right);
}

}  // namespace

std::vector<Item> ItemsOf(const headless::HeadlessHost& host) {
  std::vector<Item> items;
  const auto next = [&items] { return static_cast<int>(items.size()) + 1; };
  for (const Ref<IMap>& frame : host.Frames()) {
    items.push_back({next(), 0, "data frame", frame->Name(), frame, frame});
    for (const headless::TreeItem& each : headless::HeadlessHost::ItemsOf(frame)) {
      items.push_back(
          {next(), each.depth + 1, KindOf(each.object), NameOf(each.object), each.object, frame});
    }
  }
  return items;
}

const Item& FindItem(const std::vector<Item>& items, const std::string& word) {
  const Text name = FromUtf8(word);
  return items[FindOne(items.size(), word, "item", "", [&](std::size_t i, bool exactly) {
    return SameName(items[i].Name, name, exactly);
  })];
}

Item FindTable(const headless::HeadlessHost& host, const std::string& word) {
  const auto items = ItemsOf(host);
  const Item& item = FindItem(items, word);
  if (!item.Object.Offers<ITableFields>()) {
    throw Refusal("\"" + ToUtf8(item.Name) + "\" is a " + item.Kind + ", which has no fields");
  }
  return item;
}

bool IsValid(const Item& item) {
  if (const auto table = item.Object.TryAs<IStandaloneTable>()) return table->Valid();
  if (const auto layer = item.Object.TryAs<ILayer>()) return layer->Valid();
  return true;
}

/// With the reason, where the host knows one.
Refusal NotReached(const Item& item) {
  const auto known = item.Object.TryAs<headless::IProblem>();
  const std::string reason = known ? known->Problem() : "";
  return Refusal("the data of \"" + ToUtf8(item.Name) + "\" can't be reached" +
                 (reason.empty() ? "" : ": " + reason));
}

std::vector<Field> FieldsOf(const Item& table) {
  if (!IsValid(table)) throw NotReached(table);
  const auto view = table.Object.As<ITableFields>();
  std::vector<Field> fields;
  for (std::int32_t i = 0; i < view->FieldCount(); ++i) {
    const auto field = view->Field(i);
    const auto info = view->FieldInfo(i);
    fields.push_back({i + 1, field->Name(), info->Alias(), field->Type(), info->Visible()});
  }
  return fields;
}

const Field& FindField(const std::vector<Field>& fields, const Item& table,
                       const std::string& word) {
  const Text name = FromUtf8(word);
  const std::string where = " of \"" + ToUtf8(table.Name) + "\"";
  return fields[FindOne(fields.size(), word, "field", where, [&](std::size_t i, bool exactly) {
    return SameName(fields[i].Alias, name, exactly) || SameName(fields[i].Name, name, exactly);
  })];
}

std::int32_t RowOnOffer(headless::HeadlessHost& host, const Item& item) {
  const std::string name = "\"" + ToUtf8(item.Name) + "\"";
  if (!IsValid(item)) throw NotReached(item);
  const auto focus = host.Document()->FocusMap();
  if (!Same(item.Frame, focus)) {
    throw Refusal(name + " is not in the data frame in focus, \"" + ToUtf8(focus->Name()) + "\"");
  }
  std::int32_t row = -1, next = 0;
  ForEachValidItem(focus, [&](const Ref<IObject>& offered) {
    if (Same(offered, item.Object)) row = next;
    ++next;
  });
  if (row < 0) throw Refusal(name + " is a " + item.Kind + ", which the tools don't offer");
  return row;
}

}  // namespace brelmon::cli
