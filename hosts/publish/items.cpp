// SPDX-License-Identifier: GPL-2.0-or-later
// Layers are made by the host's own factory, so that a page has what the host would have.
#include "hosts/publish/items.h"

#include "hosts/columns/querytokens.h"
#include "hosts/headless/layerfactory.h"
#include "hosts/headless/projectxml.h"
#include "hosts/headless/shape.h"
#include "hosts/publish/rasterpicture.h"
#include "hosts/publish/symbols.h"
#include "platform/failure.h"

namespace brelmon::publish {
namespace {

Json StateOf(const headless::TreeNode& node) {
  return {{"visible", node.checked}, {"expanded", node.expanded}};
}

}  // namespace

OpenDocument::OpenDocument(const std::string& file) : project(headless::ReadProject(file)) {
  headless::ReadProjectXml(file, xml);
}

pugi::xml_node OpenDocument::LayerXml(const std::string& id) const {
  for (const char* section : {"projectlayers", "maplayers"}) {
    const pugi::xml_node all = xml.document_element().child(section);
    for (const pugi::xml_node& layer : all.children("maplayer")) {
      if (layer.child_value("id") == id) return layer;
    }
  }
  return {};
}

Json Items::Frames(const OpenDocument& document) {
  Json frames = Json::array();
  for (const headless::TreeNode& node : headless::DataFrames(document.project)) {
    Json frame = {{"name", node.name}};
    frame.update(StateOf(node));
    frame["items"] = Children(document, node);
    frames.push_back(std::move(frame));
  }
  return frames;
}

Json Items::Children(const OpenDocument& document, const headless::TreeNode& node) {
  Json items = Json::array();
  for (const headless::TreeNode& child : node.children) {
    Json item;
    if (child.layerId.empty()) {
      item = {{"kind", "group"}, {"name", child.name}};
      item.update(StateOf(child));
      item["items"] = Children(document, child);
      items.push_back(std::move(item));
      continue;
    }
    const auto layer = document.project.layers.find(child.layerId);
    // The tree may name a layer that the project lost.
    if (layer == document.project.layers.end()) continue;
    headless::LayerDefinition definition = layer->second;
    if (definition.name.empty()) definition.name = child.name;
    item = ItemOf(document, child.layerId, definition);
    item.update(StateOf(child));
    items.push_back(std::move(item));
  }
  return items;
}

Json Items::ItemOf(const OpenDocument& document, const std::string& id,
                   const headless::LayerDefinition& definition) {
  const std::string& folder = document.project.folder;
  const Ref<IObject> object = headless::MakeLayer(definition, folder);
  const pugi::xml_node xml = document.LayerXml(id);
  const bool raster = definition.type == "raster";
  const bool other = definition.type != "vector" && !raster;
  const char* kind = other                               ? "other"
                     : raster                            ? "raster"
                     : object.Offers<IStandaloneTable>() ? "table"
                                                         : "layer";
  Json json = {{"kind", kind}, {"name", definition.name}};
  const std::string attribution = xml.child_value("attribution");
  if (!attribution.empty()) json["attribution"] = attribution;
  if (other) {
    report_.Add(definition.name, "a page shows no layers of its kind (" + definition.type +
                                     "); it shows the name alone");
  } else if (raster) {
    PutRaster(object.As<ILayer>(), definition, folder, xml, json);
  } else {
    PutTable(object, definition, xml, json);
  }
  return json;
}

void Items::PutTable(const Ref<IObject>& object, const headless::LayerDefinition& definition,
                     const pugi::xml_node& xml, Json& json) {
  const auto table = object.As<headless::IHostTable>();
  const std::string& name = definition.name;
  json["source"] = sources_.NameOf(*table, name);
  const Text clause = object.As<ITableDefinition>()->DefinitionExpression();
  const std::vector<columns::Field>& fields = table->Source()->Fields();
  if (!columns::IsBlank(clause)) {
    json["definition"] = ToUtf8(clause);
    if (table->Source()->Valid() && !PageEvaluates(*table->Source(), clause)) {
      report_.Add(name, "a page can't evaluate its filter: " + ToUtf8(clause));
    }
  }
  if (!definition.aliases.empty()) json["aliases"] = definition.aliases;
  if (!definition.hiddenFields.empty()) json["hidden"] = definition.hiddenFields;
  if (object.Offers<IStandaloneTable>()) return;
  const Json symbols = SymbolsOf(xml, fields, name, report_);
  if (!symbols.is_null()) json["symbols"] = symbols;
}

void Items::PutRaster(const Ref<ILayer>& layer, const headless::LayerDefinition& definition,
                      const std::string& folder, const pugi::xml_node& xml, Json& json) {
  const std::string& name = definition.name;
  std::string loss;
  const RasterStyle style(xml, loss);
  json["valid"] = layer->Valid();
  json["opacity"] = style.Opacity();
  // A plain path with options behind bars, as the host reads it.
  const auto address = data::AddressOf({"ogr", definition.data.dataSource, {}, {}}, folder);
  if (definition.data.provider != "gdal") {
    return report_.Add(name, "its picture comes from elsewhere (" + definition.data.provider +
                                 "), where a page fetches nothing; it shows the name alone");
  }
  if (const auto outside = FileOutside(module_, address)) {
    json["valid"] = false;
    return report_.Add(name, "it lies, or refers to a file, outside the module's folder (" +
                                 *outside + ") and was left out");
  }
  const std::string picture =
      "rasters/" + FileNameOf(name, static_cast<std::size_t>(pictures_) + 1) + ".png";
  try {
    const auto own = headless::ReferenceSystemOf(definition.crs);
    json["extent"] =
        WritePicture(address.path, style, own.get(), crs_.get(), output_.PathFor(picture));
    json["picture"] = picture;
    ++pictures_;
    if (!loss.empty()) report_.Add(name, loss);
  } catch (const std::runtime_error& reason) {
    report_.Add(name, module_.Purged(reason.what()) + "; the page shows its name alone");
  }
}

Json Items::LayerFile(const std::string& path) {
  Json json = {{"path", path}};
  const std::string file = module_.Path() + "/" + path;
  try {
    headless::LayerOfFile(file);  // whatever the host would refuse
    const OpenDocument document(file);
    const auto& [id, definition] = *document.project.layers.begin();
    json["layer"] = ItemOf(document, id, definition);
  } catch (const Failure& failure) {
    const std::string reason = module_.Purged(ToUtf8(failure.Description));
    json["problem"] = reason.rfind(path + ": ", 0) == 0 ? reason.substr(path.size() + 2) : reason;
    report_.Add(path, json["problem"].get<std::string>());
  }
  return json;
}

}  // namespace brelmon::publish
