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

  /// The frame that holds this form, made at first use. Frame and form keep each other until the
  /// form is unloaded.
  Ref<IModelessFrame> Frame();
  /// Whether it is on the screen.
  bool Shown() { return m_pFrame && m_pFrame->Visible(); }
  /// Lets go of the frame, and of the form with it.
  void Close();

 protected:
  void Design() override;

 private:
  Ref<IModelessFrame> m_pFrame;
};

}  // namespace brelmon
