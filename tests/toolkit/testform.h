// SPDX-License-Identifier: GPL-2.0-or-later
// A form with one of most kinds, which writes down what runs.
#pragma once

#include <gtest/gtest.h>

#include "frame/guard.h"
#include "toolkit/controls.h"
#include "toolkit/formhost.h"

namespace brelmon {

class TestForm : public Form {
 public:
  TestForm() : Form(u"TestForm") {
    const auto log = [this](const char* name) { return [this, name] { Log(name); }; };
    cmdOK.Click = log("cmdOK");
    cmdCancel.Click = [this] {
      Log("cmdCancel");
      Unload();
    };
    optOne.Click = log("optOne");
    optTwo.Click = log("optTwo");
    optApart.Click = log("optApart");
    chkAll.Click = log("chkAll");
    txtName.Change = log("txtName");
    lbxRows.Click = log("lbxRows");
    lbxRows.DblClick = log("lbxRows2");
    lbxMany.Click = log("lbxMany");
    cbxPick.Click = log("cbxPick");
    cbxPick.Change = log("cbxPick*");
  }

  /// What ran since the last call, with blanks between.
  std::string Ran() { return std::exchange(ran, {}); }
  void Log(const std::string& what) { ran += (ran.empty() ? "" : " ") + what; }

  Label lblName{*this, u"lblName"};
  TextBox txtName{*this, u"txtName"};
  Frame cpGroup{*this, u"cpGroup"};
  OptionButton optOne{*this, u"optOne"}, optTwo{*this, u"optTwo"}, optApart{*this, u"optApart"};
  CheckBox chkAll{*this, u"chkAll"};
  ListBox lbxRows{*this, u"lbxRows"}, lbxMany{*this, u"lbxMany"};
  ComboBox cbxPick{*this, u"cbxPick"};
  CommandButton cmdOK{*this, u"cmdOK"}, cmdCancel{*this, u"cmdCancel"};
  std::function<void()> onLoad;
  std::string ran;

 protected:
  void Design() override {
    Form::Design(u"A test", 6000, 4500, true);
    lblName.Move(120, 120, 1200, 225);
    lblName.SetCaption(u"&Name && kin:");
    txtName.Move(1320, 120, 3000, 315);
    txtName.SetText(u"designed");
    txtName.SetLabel(lblName);
    cpGroup.Move(120, 600, 3000, 900);
    cpGroup.SetCaption(u"Group");
    optOne.SetContainer(cpGroup);
    optTwo.SetContainer(cpGroup);
    optOne.SetValue(true);
    chkAll.SetValue(1);
    lbxMany.SetMultiSelect(ListBox::Select::Extended);
    for (const char16_t* row : {u"a", u"b", u"c", u"d", u"e"}) {
      lbxRows.AddItem(row);
      lbxMany.AddItem(row);
      cbxPick.AddItem(row);
    }
    cmdOK.SetDefault(true);
    cmdCancel.SetCancel(true);
  }
  void Form_Load() override {
    Log("Load");
    if (onLoad) onLoad();
  }
  void Form_Unload() override { Log("Unload"); }
  void Form_Activate() override { Log("Activate"); }
  void Form_Resize() override { Log("Resize"); }
  void Form_MouseDown() override { Log("MouseDown"); }
  void Form_Click() override { Log("Click"); }
};

/// The number that `body` fails with, 0 if it doesn't.
template <class Body>
std::int32_t FailureOf(Body body) {
  return Guard::Ignore(body);
}

}  // namespace brelmon
