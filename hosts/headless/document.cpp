// SPDX-License-Identifier: GPL-2.0-or-later
// Frames from a project's tree.
#include "hosts/headless/document.h"

#include "hosts/headless/dataframe.h"
#include "hosts/headless/layerfactory.h"
#include "hosts/headless/rasterlayer.h"
#include "hosts/headless/shape.h"

namespace brelmon::headless {
namespace {

void Fill(const Project& project, const TreeNode& node, document::IDataFrame& frame,
          const Ref<IObject>& group) {
  for (const TreeNode& child : node.children) {
    if (child.layerId.empty()) {
      const Ref<IObject> inner = NewGroupLayer(FromUtf8(child.name));
      frame.Append(inner, group);
      Fill(project, child, frame, inner);
      continue;
    }
    const auto layer = project.layers.find(child.layerId);
    // The tree may name a layer that the project lost.
    if (layer == project.layers.end()) continue;
    LayerDefinition definition = layer->second;
    if (definition.name.empty()) definition.name = child.name;
    frame.Append(MakeLayer(definition, project.folder), group);
  }
}

}  // namespace

Ref<IMxDocument> OpenDocument(const Project& project, CommandFinder commands) {
  document::DocumentSettings settings;
  settings.commands = std::move(commands);
  settings.makeFrame = [crs = ReferenceSystemOf(project.crs)](document::FrameSettings facts) {
    return NewDataFrame(std::move(facts), crs);
  };
  std::vector<document::FrameFacts> frames;
  for (const TreeNode& node : DataFrames(project)) {
    frames.push_back(
        {FromUtf8(node.name), node.checked, node.expanded,
         [&project, node](document::IDataFrame& frame) { Fill(project, node, frame, {}); }});
  }
  document::Bounds shown;
  if (project.extent) {
    const auto& [xMin, yMin, xMax, yMax] = *project.extent;
    shown = {xMin, yMin, xMax, yMax, false};
  }
  return document::NewDocument(std::move(settings), frames, shown);
}

}  // namespace brelmon::headless
