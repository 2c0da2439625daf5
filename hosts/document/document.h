// SPDX-License-Identifier: GPL-2.0-or-later
// The open map document with its frames and contents views.
#pragma once

#include "hosts/document/dataframe.h"

namespace brelmon::document {

/// What the document offers beside IMxDocument and IDocument: the user's hand on it.
class IUserDocument : public virtual IObject {
 public:
  virtual const std::vector<Ref<IMap>>& Frames() const = 0;
  /// "Display", "Source" or "Selection"; false for any other name.
  virtual bool SetTab(const Text& name) = 0;
  /// The items selected in the contents view, in place of those before.
  virtual void Pick(std::vector<Ref<IObject>> items) = 0;
  virtual const std::vector<Ref<IObject>>& Picked() const = 0;
};

struct DocumentSettings {
  /// The host's own commands; unset where it has none of that identifier.
  std::function<Ref<ICommandItem>(const Text& identifier)> commands;
  std::function<Ref<IMap>(FrameSettings)> makeFrame;
  std::function<void()> changed;               // anything that is shown; may be unset
  std::function<void(IDataFrame&)> activated;  // a frame came into focus; may be unset
};

/// A frame of the document as it is opened.
struct FrameFacts {
  Text name;
  bool visible = true, expanded = true;
  std::function<void(IDataFrame&)> fill;
};

/// At least one frame. The first visible one, or else the first, has the focus and shows `shown`.
Ref<IMxDocument> NewDocument(DocumentSettings settings, const std::vector<FrameFacts>& frames,
                             const Bounds& shown);

}  // namespace brelmon::document
