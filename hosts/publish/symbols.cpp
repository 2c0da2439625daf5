// SPDX-License-Identifier: GPL-2.0-or-later
// Renderers: which classes there are, and which symbol each has.
#include "hosts/publish/symbols.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <pugixml.hpp>

#include "hosts/columns/rows.h"
#include "hosts/publish/symbol.h"

namespace brelmon::publish {
namespace {

/// The field that a class attribute names; null for an expression.
const columns::Field* FieldOf(std::string attribute, const std::vector<columns::Field>& fields) {
  if (attribute.size() > 2 && attribute.front() == '"' && attribute.back() == '"') {
    attribute = attribute.substr(1, attribute.size() - 2);
  }
  const std::int32_t field = columns::FindField(fields, FromUtf8(attribute));
  return field < 0 ? nullptr : &fields[static_cast<std::size_t>(field)];
}

/// Null for the class of all other values. The project writes any value as text: it is a number
/// where the field's are.
Json ValueOf(const pugi::xml_node& xml, const columns::Field& field) {
  const std::string value = xml.attribute("value").as_string();
  if (value.empty() || xml.attribute("type").as_string() == std::string("NULL")) return nullptr;
  const bool numeric =
      field.Stored == columns::Storage::Whole || field.Stored == columns::Storage::Real;
  char* end = nullptr;
  const double number = std::strtod(value.c_str(), &end);
  if (numeric && *end == '\0' && std::isfinite(number)) return number;
  return value;
}

class Renderer {
 public:
  Renderer(const pugi::xml_node& layer, const std::vector<columns::Field>& fields,
           const std::string& item, Report& report)
      : layer_(layer),
        xml_(layer.child("renderer-v2")),
        fields_(fields),
        item_(item),
        report_(report) {}

  Json Symbols() {
    const std::string type = xml_.attribute("type").as_string();
    Json symbols;
    if (type == "singleSymbol") {
      symbols = {{"type", "simple"}};
      const Json symbol = SymbolNamed("0");
      if (!symbol.is_null()) symbols["symbol"] = symbol;
    } else if (type == "nullSymbol") {
      symbols = {{"type", "simple"}, {"symbol", Json::object()}};
    } else if (type == "categorizedSymbol" || type == "graduatedSymbol") {
      symbols = Classes(type == "graduatedSymbol");
    } else if (xml_) {
      Plain("its renderer \"" + type + "\" is none that a page has");
    }
    if (!symbols.is_null()) PutOpacity(symbols);
    return symbols;
  }

 private:
  void Plain(const std::string& reason) { report_.Add(item_, reason + "; it is drawn plainly"); }

  void PutOpacity(Json& symbols) const {
    const double opacity = layer_.child("layerOpacity").text().as_double(1);
    if (opacity < 1) symbols["opacity"] = std::max(opacity, 0.0);
  }

  Json SymbolNamed(const std::string& name) {
    const pugi::xml_node symbol =
        xml_.child("symbols").find_child_by_attribute("symbol", "name", name.c_str());
    std::string loss;
    const Json told = SymbolOf(symbol, loss);
    if (!loss.empty()) report_.Add(item_, loss);
    return told;
  }

  Json Classes(bool graduated) {
    const std::string attribute = xml_.attribute("attr").as_string();
    const columns::Field* field = FieldOf(attribute, fields_);
    if (field == nullptr) {
      Plain("its classes are those of the expression " + attribute);
      return nullptr;
    }
    if (field->Stored == columns::Storage::Moment) {
      Plain("its classes are those of dates");
      return nullptr;
    }
    Json classes = Json::array();
    if (graduated) {
      for (const auto& range : xml_.child("ranges").children("range")) AddRange(range, classes);
    } else {
      for (const auto& each : xml_.child("categories").children("category")) {
        AddCategory(each, *field, classes);
      }
      // What no other class takes comes last.
      std::stable_partition(classes.begin(), classes.end(),
                            [](const Json& each) { return !each["value"].is_null(); });
    }
    return {{"type", graduated ? "graduated" : "categorized"},
            {"field", field->Name},
            {"classes", classes}};
  }

  Json ClassOf(const pugi::xml_node& xml) {
    Json told = {{"label", xml.attribute("label").as_string()},
                 {"visible", xml.attribute("render").as_bool(true)}};
    const Json symbol = SymbolNamed(xml.attribute("symbol").as_string());
    if (!symbol.is_null()) told["symbol"] = symbol;
    return told;
  }

  void AddRange(const pugi::xml_node& xml, Json& classes) {
    Json told = ClassOf(xml);
    told["from"] = xml.attribute("lower").as_double();
    told["to"] = xml.attribute("upper").as_double();
    classes.push_back(std::move(told));
  }

  /// A category of several values becomes a class for each.
  void AddCategory(const pugi::xml_node& xml, const columns::Field& field, Json& classes) {
    Json told = ClassOf(xml);
    if (!xml.child("val")) {
      told["value"] = ValueOf(xml, field);
      classes.push_back(std::move(told));
      return;
    }
    for (const pugi::xml_node& value : xml.children("val")) {
      told["value"] = ValueOf(value, field);
      classes.push_back(told);
    }
  }

  const pugi::xml_node layer_, xml_;
  const std::vector<columns::Field>& fields_;
  const std::string& item_;
  Report& report_;
};

}  // namespace

Json SymbolsOf(const pugi::xml_node& layer, const std::vector<columns::Field>& fields,
               const std::string& item, Report& report) {
  if (layer.attribute("labelsEnabled").as_bool()) report.Add(item, "its labels aren't shown");
  if (layer.attribute("hasScaleBasedVisibilityFlag").as_bool()) {
    report.Add(item, "it is shown at every scale");
  }
  return Renderer(layer, fields, item, report).Symbols();
}

}  // namespace brelmon::publish
