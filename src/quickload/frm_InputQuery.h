// SPDX-License-Identifier: GPL-2.0-or-later
// Asks for the name and the text of a query to be saved.
#pragma once

#include "toolkit/controls.h"

namespace brelmon {

class frm_InputQuery : public Form {
 public:
  frm_InputQuery();

  Label lblInstructions{*this, u"lblInstructions"};
  TextBox txtName{*this, u"txtName"};
  Label Label1{*this, u"Label1"};
  TextBox txtQuery{*this, u"txtQuery"};
  Label Label2{*this, u"Label2"};
  CommandButton OKButton{*this, u"OKButton"};
  CommandButton CancelButton{*this, u"CancelButton"};

  /// The name once it is confirmed, until then "Cancel".
  const Text& theName() const { return m_theName; }
  const Text& theString() const { return m_theString; }

 protected:
  void Design() override;
  void Form_Load() override;

 private:
  void EnableOK();
  void txtName_Change();
  void txtQuery_Change();
  void OKButton_Click();
  void CancelButton_Click();

  Text m_theName = u"Cancel", m_theString;
};

}  // namespace brelmon
