// SPDX-License-Identifier: GPL-2.0-or-later
// What a page is told of a table, and the table itself.
#include "hosts/publish/sources.h"

#include "hosts/columns/where.h"
#include "hosts/publish/tablefile.h"

namespace brelmon::publish {
namespace {

constexpr const char* kEmptyLayer = "the page shows its name without data";

bool IsFile(const data::SourceAddress& address) { return address.path.rfind('/', 0) == 0; }

std::string KeyOf(headless::IHostTable& table) {
  const data::TableSource& source = *table.Source();
  const data::SourceAddress& address = source.Address();
  std::string key = address.path + '\n' + address.layer + '\n' +
                    std::to_string(address.layerNumber) + '\n' + address.encoding + '\n' +
                    source.Problem() + '\n';
  for (const std::string& driver : address.drivers) key += driver + '\n';
  for (const std::string& option : address.openOptions) key += option + '\n';
  const OGRSpatialReference* crs = table.ReferenceSystem();
  char* text = nullptr;
  if (crs != nullptr) crs->exportToWkt(&text);
  if (text != nullptr) key += text;
  CPLFree(text);
  return key;
}

/// A unit for each byte, U+0000 for one that stands for nothing.
std::string Characters(const columns::CodePage& page) {
  std::string characters;
  for (int byte = 0; byte < 256; ++byte) {
    const char unit = static_cast<char>(byte);
    if (!page.ToUtf8({&unit, 1}, characters)) characters += '\0';
  }
  return characters;
}

Json FieldsOf(const data::TableSource& source) {
  Json fields = Json::array();
  for (const columns::Field& field : source.Fields()) {
    Json json = {{"name", field.Name}, {"type", static_cast<int>(field.Type)}};
    if (field.Width > 0) json["width"] = field.Width;
    if (field.Decimals > 0) json["decimals"] = field.Decimals;
    if (field.Stored == columns::Storage::Moment && !field.TimeOfDay) json["dateOnly"] = true;
    fields.push_back(std::move(json));
  }
  return fields;
}

void PutEncoding(data::TableSource& source, Json& json) {
  const columns::CodePage& page = source.Encoding();
  if (page.IsUtf8()) return;
  json["encoding"] = page.Name();
  if (page.IsKnown()) json["characters"] = Characters(page);
}

}  // namespace

std::string FileNameOf(const std::string& text, std::size_t number) {
  constexpr std::size_t kLongest = 40;
  std::string name;
  for (const char unit : text) {
    const bool plain = (unit >= 'a' && unit <= 'z') || (unit >= 'A' && unit <= 'Z') ||
                       (unit >= '0' && unit <= '9') || unit == '-' || unit == '_';
    if (plain) name += unit;
    if (!plain && !name.empty() && name.back() != '_') name += '_';
    if (name.size() == kLongest) break;
  }
  return name + "-" + std::to_string(number);
}

bool PageEvaluates(const data::TableSource& source, const Text& clause) {
  const auto compiled = source.HasOwnSql() ? columns::CompileSqliteWhere(clause, source.Fields())
                                           : columns::CompileWhere(clause, source.Fields());
  return compiled.where != nullptr;
}

std::string Sources::NameOf(headless::IHostTable& table, const std::string& item) {
  std::string& name = names_[KeyOf(table)];
  if (name.empty()) {
    name = FileNameOf(ToUtf8(table.Source()->TableName()), names_.size());
    all_[name] = Told(table, name, item);
  } else if (all_[name].contains("problem")) {
    report_.Add(item, all_[name]["problem"].get<std::string>() + "; " + kEmptyLayer);
  }
  return name;
}

std::string Sources::ProblemOf(const data::TableSource& source, const std::string& item) {
  const data::SourceAddress& address = source.Address();
  std::string problem = source.Problem();
  if (!IsFile(address)) {
    // An address elsewhere may hold passwords: it is told nowhere.
    problem = address.problem.empty() ? "its data lie in no file" : address.problem;
  } else if (const auto outside = FileOutside(module_, address)) {
    problem = module_.Inside(address.path) ? "its data refer to a file outside the module's folder"
                                           : "its data lie outside the module's folder";
    report_.Add(item, problem + " (" + *outside + ") and were left out; " + kEmptyLayer);
    return problem;
  }
  problem = module_.Purged(problem);
  if (!problem.empty()) {
    report_.Add(item, "its data can't be reached (" + problem + "); " + kEmptyLayer);
  }
  return problem;
}

Json Sources::Told(headless::IHostTable& table, const std::string& name, const std::string& item) {
  data::TableSource& source = *table.Source();
  const std::string problem = ProblemOf(source, item);
  Json json = {{"kind", ToUtf8(source.Kind())}};
  if (!problem.empty()) json["problem"] = problem;
  if (IsFile(source.Address())) {
    json["workspace"] = module_.Windows(source.WorkspacePath());
    json["path"] = module_.Windows(source.Address().path);
    json["table"] = ToUtf8(source.TableName());
  } else {
    json["workspace"] = json["path"] = module_.Windows(module_.Path());
    json["table"] = item;
  }
  if (problem.empty()) WriteRows(table, name, item, json);
  return json;
}

void Sources::WriteRows(headless::IHostTable& table, const std::string& name,
                        const std::string& item, Json& json) {
  data::TableSource& source = *table.Source();
  const std::string file = "data/" + name + ".fgb";
  // What lies in no file doesn't come here.
  const auto rows = std::dynamic_pointer_cast<data::VectorSource>(table.Source());
  const TableFacts facts = WriteTable(rows, table.ReferenceSystem(), crs_, output_.PathFor(file),
                                      [this] { output_.CheckStopped(); });
  output_.Fetched(file);
  json["file"] = file;
  json["rows"] = facts.rows;
  json["sql"] = source.HasOwnSql() ? "sqlite" : "gdal";
  PutEncoding(source, json);
  if (!facts.geometry.empty()) json["geometry"] = facts.geometry;
  if (facts.extent.IsInit() != 0) {
    json["extent"] = {facts.extent.MinX, facts.extent.MinY, facts.extent.MaxX, facts.extent.MaxY};
  }
  json["fields"] = FieldsOf(source);
  if (facts.placeless > 0) {
    report_.Add(item, std::to_string(facts.placeless) +
                          " of its shapes have no place in the document's reference system and "
                          "aren't drawn");
  }
  rows_ += facts.rows;
  reached_.push_back(table.Source());
}

}  // namespace brelmon::publish
