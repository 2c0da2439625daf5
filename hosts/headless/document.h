// SPDX-License-Identifier: GPL-2.0-or-later
// The open map document with its frames and contents views.
#pragma once

#include "hosts/headless/dataframe.h"
#include "hosts/headless/project.h"
#include "platform/map.h"

namespace brelmon::headless {

/// What the document offers beside IMxDocument and IDocument: the user's hand on it.
class IUserDocument : public virtual IObject {
 public:
  /// "Display", "Source" or "Selection"; false for any other name.
  virtual bool SetTab(const Text& name) = 0;
  /// The items selected in the contents view, in place of those before.
  virtual void Pick(std::vector<Ref<IObject>> items) = 0;
};

/// Unset where the host has no command of that identifier.
using CommandFinder = std::function<Ref<ICommandItem>(const Text& identifier)>;

/// Makes every layer of the project.
Ref<IMxDocument> NewDocument(const Project& project, CommandFinder commands);

}  // namespace brelmon::headless
