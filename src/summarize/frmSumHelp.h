// SPDX-License-Identifier: GPL-2.0-or-later
// The help window of the Summarize dialog: one picture in a frame beside the host.
#pragma once

#include "platform/application.h"
#include "toolkit/controls.h"

namespace brelmon {

class frmSumHelp : public Form {
 public:
  frmSumHelp();

  PictureBox Picture1{*this, u"Picture1"};

  /// The frame that holds this form, made at first use.
  Ref<IModelessFrame> Frame();

 protected:
  void Design() override;

 private:
  Ref<IModelessFrame> m_pFrame;
};

}  // namespace brelmon
