// SPDX-License-Identifier: GPL-2.0-or-later
// Changes the selection of the active themes.
#pragma once

#include "layertools/validmember.h"

namespace brelmon {

/// Applies `method` with all rows to each active theme and redraws the selection before and
/// after. Ends at the first whose data can't be reached, without the closing redraw.
void SelectActive(const Ref<IMxDocument>& document, SelectionMethod method,
                  const InvalidTails& tails);

/// Applies `method` with all rows of a feature layer or standalone table and tells its listeners.
void SelectAllRows(const Ref<IObject>& item, SelectionMethod method);

/// Redraws the selection in the active view.
void RedrawSelection(const Ref<IMxDocument>& document);

}  // namespace brelmon
