// SPDX-License-Identifier: GPL-2.0-or-later
// Frames, groups, layers and tables of a document as a page is told of them.
#pragma once

#include <memory>
#include <pugixml.hpp>
#include <string>

#include "hosts/headless/project.h"
#include "hosts/publish/sources.h"

namespace brelmon::publish {

/// A map document or layer file, read, with what of it is XML alone.
struct OpenDocument {
  /// System path. Throws as ReadProject does.
  explicit OpenDocument(const std::string& file);
  pugi::xml_node LayerXml(const std::string& id) const;

  headless::Project project;
  pugi::xml_document xml;
};

class Items {
 public:
  Items(const ModuleFolder& module, std::shared_ptr<const OGRSpatialReference> crs,
        const OutputFolder& output, Sources& sources, Report& report)
      : module_(module),
        crs_(std::move(crs)),
        output_(output),
        sources_(sources),
        report_(report) {}

  Json Frames(const OpenDocument& document);
  /// `path` in the module.
  Json LayerFile(const std::string& path);
  std::int64_t Pictures() const { return pictures_; }

 private:
  Json Children(const OpenDocument& document, const headless::TreeNode& node);
  Json ItemOf(const OpenDocument& document, const std::string& id,
              const headless::LayerDefinition& definition);
  void PutTable(const Ref<IObject>& object, const headless::LayerDefinition& definition,
                const pugi::xml_node& xml, Json& json);
  void PutRaster(const Ref<ILayer>& layer, const headless::LayerDefinition& definition,
                 const std::string& folder, const pugi::xml_node& xml, Json& json);

  const ModuleFolder& module_;
  std::shared_ptr<const OGRSpatialReference> crs_;
  const OutputFolder& output_;
  Sources& sources_;
  Report& report_;
  std::int64_t pictures_ = 0;
};

}  // namespace brelmon::publish
