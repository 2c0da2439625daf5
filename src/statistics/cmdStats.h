// SPDX-License-Identifier: GPL-2.0-or-later
// The command "Calculate Statistics" with its long-lived report window.
#pragma once

#include "frame/command.h"
#include "statistics/StatisticsFlow.h"
#include "statistics/frmReport.h"

namespace brelmon {

class cmdStats : public BrelmonCommand {
 public:
  cmdStats();
  ~cmdStats() override;
  void OnClick() override;

  /// Where reports go; made by OnCreate, shown by the first run.
  const Ref<frmReport>& ReportWindow() const { return report_; }

 protected:
  void Created() override;

 private:
  StatisticsDefaults statDefaults_;
  Ref<frmReport> report_;
};

}  // namespace brelmon
