// SPDX-License-Identifier: GPL-2.0-or-later
// The open document with its frames and contents views.
#pragma once

#include "hosts/web/dataframe.h"

namespace brelmon::web {

/// What the document offers beside IMxDocument and IDocument: the student's hand on it.
class IUserDocument : public virtual IObject {
 public:
  virtual const std::vector<Ref<IMap>>& Frames() const = 0;
  /// "Display", "Source" or "Selection"; false for any other name.
  virtual bool SetTab(const Text& name) = 0;
  /// The items selected in the contents view, in place of those before.
  virtual void Pick(std::vector<Ref<IObject>> items) = 0;
  virtual const std::vector<Ref<IObject>>& Picked() const = 0;
};

struct DocumentListener {
  std::function<void()> changed;           // anything that the page shows
  std::function<void(IDataFrame&)> moved;  // a tool has moved a frame's view
};

/// Makes every item of the module. `commands` gives the host's own commands, unset for none.
Ref<IMxDocument> NewDocument(const Module& module, const Sources& sources,
                             std::function<Ref<ICommandItem>(const Text&)> commands,
                             DocumentListener listener);

}  // namespace brelmon::web
