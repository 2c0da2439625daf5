// SPDX-License-Identifier: GPL-2.0-or-later
// The road from the statistics dialog to the report, for the command and for the dialogs with a
// statistics button.
#pragma once

#include <cstdint>
#include <functional>

#include "platform/application.h"
#include "platform/collection.h"
#include "statistics/frmReport_modal.h"

namespace brelmon {

/// What the statistics dialog opens with. Whoever offers statistics keeps a set of its own from
/// run to run.
struct StatisticsDefaults {
  Text ExcludeText = u"-9999";
  bool Ignore = false;
  bool AllRecords = true;  // remembered; the dialog decides by the selection instead
  std::int16_t DecimalPlaces = 2;
};

/// Feature layers and standalone tables under the keys "0", "1"..., and which one to begin with.
struct StatisticsOffer {
  Collection<Ref<IObject>> Items;
  Ref<IObject> Selected;
};

/// Where the flows differ.
struct StatisticsVariant {
  /// Whether ignored values are excluded from sources that take field names without enclosure.
  bool ExcludesNotEnclosed = true;
  std::size_t ClosingHyphens = 74;  // behind the list of ignored values
  bool ResetsPointer = true;        // at the end
  std::function<void(const Text& report)> ShowReport;
};

/// Asks with the dialog, gathers, calculates, and shows the report; nothing if it was cancelled.
/// Not guarded: a failure goes to the caller and leaves hourglass and progress bar as they are.
void RunStatistics(const Ref<IApplication>& application, const StatisticsOffer& offer,
                   StatisticsDefaults& defaults, const StatisticsVariant& variant);

/// The flow of a dialog's statistics button on the one item chosen there. The report window is
/// made if it is unset. Not guarded either.
void RunDialogStatistics(const Ref<IApplication>& application, const Ref<IObject>& item,
                         StatisticsDefaults& defaults, Ref<frmReport_modal>& report);

}  // namespace brelmon
