// SPDX-License-Identifier: GPL-2.0-or-later
// Frames of a module.
#include "hosts/web/document.h"

#include "hosts/web/dataframe.h"

namespace brelmon::web {
namespace {

void Fill(const std::vector<ModuleItem>& items, const Sources& sources, document::IDataFrame& frame,
          const Ref<IObject>& group) {
  for (const ModuleItem& item : items) {
    const Ref<IObject> made = NewItem(item, sources);
    frame.Append(made, group);
    Fill(item.items, sources, frame, made);
  }
}

}  // namespace

Ref<IMxDocument> OpenDocument(const Module& module, const Sources& sources,
                              std::function<Ref<ICommandItem>(const Text&)> commands,
                              DocumentListener listener) {
  document::DocumentSettings settings;
  settings.commands = std::move(commands);
  settings.changed = std::move(listener.changed);
  settings.makeFrame = [moved = std::move(listener.moved)](document::FrameSettings facts) {
    return NewDataFrame(std::move(facts), moved);
  };
  // The map shows one frame, that in focus.
  settings.activated = [](document::IDataFrame& frame) { frame.SetVisible(true); };
  std::vector<document::FrameFacts> frames;
  for (const ModuleItem& facts : module.frames) {
    frames.push_back({FromUtf8(facts.name), facts.visible, facts.expanded,
                      [&facts, &sources](document::IDataFrame& frame) {
                        Fill(facts.items, sources, frame, {});
                      }});
  }
  return document::NewDocument(std::move(settings), frames, module.extent);
}

}  // namespace brelmon::web
