// SPDX-License-Identifier: GPL-2.0-or-later
// The About box: version, what the modules are for, two links, system information.
#pragma once

#include <memory>

#include "forms/AnchorObjectList.h"
#include "platform/services.h"
#include "toolkit/controls.h"

namespace brelmon {

class frmAbout : public Form {
 public:
  frmAbout();

  PictureBox imgBrelmon{*this, u"imgBrelmon"};
  RichTextBox rtfAbout{*this, u"rtfAbout"};
  Label lblVersion{*this, u"lblVersion"};
  PictureBox picMakerLogo{*this, u"picMakerLogo"};
  Label lglGIS{*this, u"lglGIS"};
  Label lblWebSite{*this, u"lblWebSite"};
  Label lblSponsor1{*this, u"lblSponsor1"};
  Label lblSponsor2{*this, u"lblSponsor2"};
  CommandButton cmdSysInfo{*this, u"cmdSysInfo"};
  CommandButton cmdOK{*this, u"cmdOK"};
  PictureBox imgCornerBars{*this, u"imgCornerBars"};

  /// Runs the system's information tool where the registry tells of one, else says that there
  /// is none.
  void StartSysInfo();

 protected:
  void Design() override;
  void Form_Load() override;
  void Form_Resize() override {}
  void Form_MouseMove() override;

 private:
  void cmdOK_Click();
  void cmdSysInfo_Click();
  void lblWebSite_Click();
  void lblSponsor2_Click();
  void picMakerLogo_Click();
  void lblWebSite_MouseMove();
  void lblSponsor2_MouseMove();

  std::unique_ptr<AnchorObjectList> anchors_;
};

/// Reads one registry value as text. A string comes without a closing zero, a double word as
/// decimal text; any other type leaves `KeyVal` as it was. False, and an empty text, where key or
/// value can't be read.
bool GetKeyValue(RegistryRoot KeyRoot, const Text& KeyName, const Text& SubKeyRef, Text& KeyVal);

}  // namespace brelmon
