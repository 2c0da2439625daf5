// SPDX-License-Identifier: GPL-2.0-or-later
// From descriptions to objects.
#include "hosts/headless/layerfactory.h"

#include <stdexcept>

#include "hosts/common/hostfailure.h"
#include "hosts/headless/rasterlayer.h"
#include "hosts/headless/shape.h"
#include "hosts/headless/table.h"

namespace brelmon::headless {
namespace {

/// The source, unreachable if its own filter is one that it refuses.
std::shared_ptr<data::TableSource> SourceOf(const LayerDefinition& definition,
                                            const std::string& folder) {
  data::SourceAddress address = data::AddressOf(definition.data, folder);
  auto source = data::OpenSource(address);
  if (!source->Valid()) return source;
  try {
    source->TryClause(FromUtf8(address.subset));
    return source;
  } catch (const Failure& failure) {
    address.problem = "its filter can't be used: " + ToUtf8(failure.Description);
  }
  return data::OpenSource(address);
}

TableSettings SettingsOf(const LayerDefinition& definition, const std::string& folder) {
  TableSettings settings;
  settings.name = FromUtf8(definition.name);
  settings.source = SourceOf(definition, folder);
  settings.definition = FromUtf8(settings.source->Address().subset);
  for (const auto& [field, alias] : definition.aliases) {
    settings.aliases[FromUtf8(field)] = FromUtf8(alias);
  }
  for (const std::string& field : definition.hiddenFields) {
    settings.hiddenFields.insert(FromUtf8(field));
  }
  settings.crs = ReferenceSystemOf(definition.crs);
  return settings;
}

}  // namespace

Ref<IObject> MakeLayer(const LayerDefinition& definition, const std::string& folder) {
  if (definition.type != "vector") {
    // A plain path with options behind bars.
    const auto address = data::AddressOf({"ogr", definition.data.dataSource, {}, {}}, folder);
    return NewRasterLayer(FromUtf8(definition.name), definition.data.provider, address);
  }
  TableSettings settings = SettingsOf(definition, folder);
  const bool layer =
      settings.source->Valid() ? settings.source->HasGeometry() : definition.hasGeometry;
  if (layer) return NewFeatureLayer(std::move(settings));
  return NewStandaloneTable(std::move(settings));
}

Ref<ILayer> LayerOfFile(const std::string& systemPath) {
  Project file;
  try {
    file = ReadProject(systemPath);
  } catch (const std::runtime_error& reason) {
    host::Fail(failure::kInvalidCall, reason.what());
  }
  if (file.layers.size() != 1) {
    host::Fail(failure::kInvalidCall,
               systemPath + (file.layers.empty() ? ": the file holds no layer"
                                                 : ": the file holds several layers"));
  }
  const Ref<ILayer> layer = MakeLayer(file.layers.begin()->second, file.folder).TryAs<ILayer>();
  if (!layer) host::Fail(failure::kInvalidCall, systemPath + ": the file holds a table, no layer");
  return layer;
}

}  // namespace brelmon::headless
