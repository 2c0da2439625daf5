// SPDX-License-Identifier: GPL-2.0-or-later
// The parts of a publication in their order; the document comes last.
#include "hosts/publish/publish.h"

#include <filesystem>
#include <stdexcept>

#include "hosts/columns/querytokens.h"
#include "hosts/common/paths.h"
#include "hosts/headless/shape.h"
#include "hosts/publish/companions.h"
#include "hosts/publish/earlierpublication.h"
#include "hosts/publish/items.h"
#include "platform/failure.h"
#include "platform/services.h"

namespace brelmon::publish {
namespace {

constexpr int kShape = 1;

void CheckPage(const std::string& page) {
  for (const char* name : kPageFiles) {
    if (host::FileExists(page + "/" + name)) continue;
    throw std::runtime_error("the page to be published isn't in " + page + ": there is no " + name +
                             "; BRELMON_WEB may name the folder that holds it");
  }
}

/// The root element's attribute tells the page to fetch nothing.
std::string MarkedAsSingle(std::string page) {
  const std::size_t root = page.find("<html");
  if (root == std::string::npos) throw std::runtime_error("index.html has no root element");
  return page.insert(root + 5, " data-single");
}

void WritePage(const std::string& page, const OutputFolder& output) {
  for (const std::string name : kPageFiles) {
    if (name == "index.html" && output.Single()) {
      output.Put(name, MarkedAsSingle(BytesOfFile(page + "/" + name)));
    } else {
      output.Copy(name, page + "/" + name);
    }
  }
  output.Fetched("brelmon.wasm");
}

const char* UnitsOf(const OGRSpatialReference* crs) {
  if (crs == nullptr) return "other";
  if (crs->IsGeographic() != 0) return "degrees";
  return crs->IsProjected() != 0 && crs->GetLinearUnits() == 1.0 ? "metres" : "other";
}

/// Saved queries that a table of the module takes and a page can't evaluate.
void CheckQueries(const Companions& companions, const Sources& sources, Report& report) {
  for (const Companions::Query& query : companions.queries) {
    for (const auto& source : sources.Reached()) {
      try {
        source->TryClause(query.text);
      } catch (const Failure&) {
        continue;  // a query for another table
      }
      if (columns::IsBlank(query.text)) continue;
      if (PageEvaluates(*source, query.text)) continue;
      report.Add(query.name, "a page can't evaluate this query: " + ToUtf8(query.text));
    }
  }
}

void WriteCompanions(const ModuleFolder& module, const Companions& companions,
                     const OutputFolder& output) {
  for (const std::string& path : companions.media) {
    output.Copy("module/" + path, module.Path() + "/" + path);
  }
  for (const std::string& path : companions.texts) {
    const std::string name = "module/" + path;
    output.Copy(name, module.Path() + "/" + path);
    output.Fetched(name);
    // A list may be a medium, too.
    if (output.Single() && companions.media.count(path) != 0) {
      output.Copy(name, module.Path() + "/" + path);
    }
  }
}

Json ModuleJson(const ModuleFolder& module, const OpenDocument& document,
                const OGRSpatialReference* crs) {
  const std::string file = std::filesystem::path(document.project.file).filename().string();
  const std::string title = document.xml.document_element().child_value("title");
  Json json = {{"shape", kShape},
               {"title", title.empty() ? file : title},
               {"document", module.Windows(document.project.file)},
               {"units", UnitsOf(crs)}};
  if (document.project.extent) json["extent"] = *document.project.extent;
  return json;
}

}  // namespace

Published Publish(const Request& request) {
  CheckPage(request.page);
  const ServicesScope scope(CurrentServices());  // no file is open yet
  OutputFolder output(request.folder, request.single, request.stopped);
  const OpenDocument document(request.document);
  const ModuleFolder module(document.project.file);
  const auto crs = headless::ReferenceSystemOf(document.project.crs);
  Report report;
  Sources sources(module, crs.get(), output, report);
  Items items(module, crs, output, sources, report);
  Json json = ModuleJson(module, document, crs.get());
  const Json frames = items.Frames(document);
  const Companions companions = CompanionsOf(module, report);
  Json layerFiles = Json::array();
  for (const std::string& path : companions.layerFiles) layerFiles.push_back(items.LayerFile(path));
  CheckQueries(companions, sources, report);
  WriteCompanions(module, companions, output);
  json["sources"] = sources.All();
  json["frames"] = frames;
  json["layerFiles"] = layerFiles;
  json["texts"] = companions.texts;
  json["media"] = companions.media;
  WritePage(request.page, output);
  output.Put(kModuleFile, TextOf(json) + "\n");
  output.Fetched(kModuleFile);
  output.Commit();
  return {static_cast<std::int64_t>(sources.Reached().size()), sources.Rows(), items.Pictures(),
          static_cast<std::int64_t>(companions.media.size()), report.Lines()};
}

}  // namespace brelmon::publish
