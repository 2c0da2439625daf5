// SPDX-License-Identifier: GPL-2.0-or-later
// Asks for the name of a new spatial bookmark.
#pragma once

#include "toolkit/controls.h"

namespace brelmon {

class frm_InputSpatialBookmark : public Form {
 public:
  frm_InputSpatialBookmark();

  Label lblInstructions{*this, u"lblInstructions"};
  TextBox txtName{*this, u"txtName"};
  CommandButton OKButton{*this, u"OKButton"};
  CommandButton CancelButton{*this, u"CancelButton"};

  /// The name once it is confirmed, until then "Cancel".
  const Text& theModalResult() const { return m_theModalResult; }

 protected:
  void Design() override;
  void Form_Load() override;

 private:
  void txtName_Change();
  void OKButton_Click();
  void CancelButton_Click();

  Text m_theModalResult = u"Cancel";
};

}  // namespace brelmon
