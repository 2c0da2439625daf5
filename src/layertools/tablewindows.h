// SPDX-License-Identifier: GPL-2.0-or-later
// Attribute table windows of the host, as tools open them.
#pragma once

#include "platform/map.h"

namespace brelmon {

/// Shows the open window of a feature layer or standalone table, or a new one where none is open.
/// Does nothing for any other item.
void OpenTableOf(const Ref<IObject>& item, const Ref<IApplication>& application);

/// Shows a new window of a table, without looking for an open one.
void OpenNewTableWindow(const Ref<IStandaloneTable>& table, const Ref<IApplication>& application);

}  // namespace brelmon
