// SPDX-License-Identifier: GPL-2.0-or-later
// From JSON to plain data. A key of another type than it should have counts as absent.
#include "hosts/web/module.h"

#include <rapidjson/document.h>
#include <rapidjson/error/en.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <stdexcept>

namespace brelmon::web {
namespace {

using Node = rapidjson::Value;

constexpr int kShape = 1;

const Node& Member(const Node& object, const char* key) {
  static const Node nothing;
  if (!object.IsObject()) return nothing;
  const auto hit = object.FindMember(key);
  return hit == object.MemberEnd() ? nothing : hit->value;
}

std::string TextOf(const Node& node) {
  return node.IsString() ? std::string(node.GetString(), node.GetStringLength()) : std::string();
}
std::string TextOf(const Node& object, const char* key) { return TextOf(Member(object, key)); }

bool FlagOf(const Node& object, const char* key, bool otherwise) {
  const Node& node = Member(object, key);
  return node.IsBool() ? node.GetBool() : otherwise;
}

double NumberOf(const Node& object, const char* key, double otherwise = 0) {
  const Node& node = Member(object, key);
  return node.IsNumber() ? node.GetDouble() : otherwise;
}

template <class Each>
void ForEach(const Node& array, Each each) {
  if (!array.IsArray()) return;
  for (const Node& node : array.GetArray()) each(node);
}

std::vector<std::string> TextsOf(const Node& array) {
  std::vector<std::string> texts;
  ForEach(array, [&](const Node& node) { texts.push_back(TextOf(node)); });
  return texts;
}

Bounds BoundsOf(const Node& array) {
  Bounds box;
  if (!array.IsArray() || array.Size() != 4) return box;
  for (const Node& node : array.GetArray()) {
    if (!node.IsNumber()) return box;
  }
  box.Add(array[0].GetDouble(), array[1].GetDouble());
  box.Add(array[2].GetDouble(), array[3].GetDouble());
  return box;
}

columns::Field FieldOf(const Node& node) {
  columns::Field field;
  field.Name = TextOf(node, "name");
  field.Type = static_cast<FieldType>(static_cast<std::int32_t>(NumberOf(node, "type", 4)));
  field.IsId = field.Type == FieldType::OID;
  field.Width = static_cast<int>(NumberOf(node, "width"));
  field.Decimals = static_cast<int>(NumberOf(node, "decimals"));
  field.TimeOfDay = !FlagOf(node, "dateOnly", false);
  return field;
}

SourceFacts SourceOf(const Node& node, std::string id) {
  SourceFacts source;
  source.id = std::move(id);
  source.kind = TextOf(node, "kind");
  source.problem = TextOf(node, "problem");
  source.file = TextOf(node, "file");
  if (source.file.empty() && source.problem.empty()) source.problem = "it was not published";
  source.workspace = TextOf(node, "workspace");
  source.path = TextOf(node, "path");
  source.table = TextOf(node, "table");
  source.ownSql = TextOf(node, "sql") == "sqlite";
  source.hasShapes = !TextOf(node, "geometry").empty();
  source.extent = BoundsOf(Member(node, "extent"));
  const std::string encoding = TextOf(node, "encoding");
  if (!encoding.empty() && encoding != "UTF-8") {
    source.encoding = columns::CodePage(encoding, FromUtf8(TextOf(node, "characters")));
  }
  ForEach(Member(node, "fields"),
          [&](const Node& field) { source.fields.push_back(FieldOf(field)); });
  return source;
}

/// As a field's values read in general text.
std::string ClassValue(const Node& node) {
  if (node.IsString()) return TextOf(node);
  if (node.IsBool()) return node.GetBool() ? "1" : "0";
  return node.IsNumber() ? ToUtf8(Value(node.GetDouble()).ToText(0)) : std::string();
}

Symbols SymbolsOf(const Node& node) {
  Symbols symbols;
  if (!node.IsObject()) return symbols;
  rapidjson::StringBuffer out;
  rapidjson::Writer<rapidjson::StringBuffer> writer(out);
  node.Accept(writer);
  symbols.json.assign(out.GetString(), out.GetSize());
  const std::string type = TextOf(node, "type");
  if (type == "categorized") symbols.type = Symbols::Type::Categorized;
  if (type == "graduated") symbols.type = Symbols::Type::Graduated;
  symbols.field = TextOf(node, "field");
  ForEach(Member(node, "classes"), [&](const Node& each) {
    SymbolClass one;
    const Node& value = Member(each, "value");
    one.other = symbols.type == Symbols::Type::Categorized && value.IsNull();
    one.value = ClassValue(value);
    one.visible = FlagOf(each, "visible", true);
    one.from = NumberOf(each, "from");
    one.to = NumberOf(each, "to");
    symbols.classes.push_back(std::move(one));
  });
  return symbols;
}

ModuleItem ItemOf(const Node& node, int depth = 0) {
  constexpr int kDeepest = 64;
  ModuleItem item;
  item.kind = TextOf(node, "kind");
  item.name = TextOf(node, "name");
  item.visible = FlagOf(node, "visible", true);
  item.expanded = FlagOf(node, "expanded", true);
  item.source = TextOf(node, "source");
  item.definition = TextOf(node, "definition");
  item.attribution = TextOf(node, "attribution");
  const Node& aliases = Member(node, "aliases");
  if (aliases.IsObject()) {
    for (const auto& alias : aliases.GetObject()) {
      item.aliases[TextOf(alias.name)] = TextOf(alias.value);
    }
  }
  for (std::string& field : TextsOf(Member(node, "hidden"))) item.hidden.insert(std::move(field));
  item.symbols = SymbolsOf(Member(node, "symbols"));
  item.picture = TextOf(node, "picture");
  item.extent = BoundsOf(Member(node, "extent"));
  item.opacity = NumberOf(node, "opacity", 1);
  item.valid = FlagOf(node, "valid", true);
  if (depth < kDeepest) {
    ForEach(Member(node, "items"),
            [&](const Node& child) { item.items.push_back(ItemOf(child, depth + 1)); });
  }
  return item;
}

LayerFile LayerFileOf(const Node& node) {
  LayerFile file;
  file.path = TextOf(node, "path");
  file.problem = TextOf(node, "problem");
  if (Member(node, "layer").IsObject()) file.layer = ItemOf(Member(node, "layer"));
  return file;
}

}  // namespace

Module ReadModule(const std::string& json) {
  rapidjson::Document document;
  document.Parse<rapidjson::kParseIterativeFlag>(json.data(), json.size());
  if (document.HasParseError()) {
    throw std::runtime_error("module.json, byte " + std::to_string(document.GetErrorOffset()) +
                             ": " + rapidjson::GetParseError_En(document.GetParseError()));
  }
  if (NumberOf(document, "shape") != kShape) {
    throw std::runtime_error("module.json: published for another version of this page");
  }
  Module module;
  module.title = TextOf(document, "title");
  module.document = TextOf(document, "document");
  module.units = TextOf(document, "units");
  module.extent = BoundsOf(Member(document, "extent"));
  const Node& sources = Member(document, "sources");
  if (sources.IsObject()) {
    for (const auto& source : sources.GetObject()) {
      module.sources.push_back(SourceOf(source.value, TextOf(source.name)));
    }
  }
  ForEach(Member(document, "frames"),
          [&](const Node& frame) { module.frames.push_back(ItemOf(frame)); });
  ForEach(Member(document, "layerFiles"),
          [&](const Node& file) { module.layerFiles.push_back(LayerFileOf(file)); });
  module.texts = TextsOf(Member(document, "texts"));
  module.media = TextsOf(Member(document, "media"));
  if (module.frames.empty()) throw std::runtime_error("module.json: it has no data frame");
  return module;
}

}  // namespace brelmon::web
