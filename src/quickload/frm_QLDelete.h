// SPDX-License-Identifier: GPL-2.0-or-later
// Offers the references of a QuickLoad file for deletion.
#pragma once

#include <memory>

#include "forms/AnchorObjectList.h"
#include "toolkit/controls.h"

namespace brelmon {

/// The caller fills the list and reads which rows are selected.
class frm_QLDelete : public Form {
 public:
  frm_QLDelete();

  Label lblInstructions{*this, u"lblInstructions"};
  ListBox lbxReferences{*this, u"lbxReferences"};
  CommandButton OKButton{*this, u"OKButton"};
  CommandButton CancelButton{*this, u"CancelButton"};
  PictureBox imgCornerBars{*this, u"imgCornerBars"};

  /// True once the dialog was closed by OK, with or without a row selected.
  bool ShouldContinue() const { return m_ShouldContinue; }

 protected:
  void Design() override;
  void Form_Load() override;

 private:
  void OKButton_Click();
  void CancelButton_Click();

  bool m_ShouldContinue = false;
  std::unique_ptr<AnchorObjectList> m_pAnchors;
};

}  // namespace brelmon
