// SPDX-License-Identifier: GPL-2.0-or-later
// Data frames that the page knows by a name of their own.
#pragma once

#include "hosts/document/dataframe.h"

namespace brelmon::web {

/// What this host's frames offer beside those of any document.
class IPageFrame : public virtual IObject {
 public:
  virtual int Id() const = 0;
};

/// `moved` is told when a tool has moved the frame's view.
Ref<IMap> NewDataFrame(document::FrameSettings settings, std::function<void(int id)> moved);
int FrameId(const Ref<IMap>& frame);

}  // namespace brelmon::web
