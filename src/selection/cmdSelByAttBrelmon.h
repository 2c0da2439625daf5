// SPDX-License-Identifier: GPL-2.0-or-later
// Brelmon Select By Attributes: the query dialog over the focus map's layers and tables.
#pragma once

#include "frame/command.h"
#include "selection/brelmon_modquerydialog.h"

namespace brelmon {

class cmdSelByAttBrelmon : public BrelmonCommand {
 public:
  cmdSelByAttBrelmon();
  ~cmdSelByAttBrelmon() override;
  void OnClick() override;

 protected:
  void Created() override;

 private:
  Ref<brelmon_ModQueryDialog> m_pDialog;  // kept between clicks
};

}  // namespace brelmon
