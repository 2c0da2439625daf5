// SPDX-License-Identifier: GPL-2.0-or-later
// Loading and unloading, showing, focus and tab order, dumps.
#include "platform/services.h"
#include "tests/toolkit/testform.h"

namespace brelmon {
namespace {

struct TestHost : IFormHost {
  void ShowModal(Form& form) override { user(form); }
  std::function<void(Form&)> user;
};

class Showing : public testing::Test {
 protected:
  Showing() : scope_(Set(host)) {}
  TestHost host;

 private:
  static Services Set(TestHost& host) {
    Services services;
    services.forms = &host;
    return services;
  }
  ServicesScope scope_;
};

std::string Names(const std::vector<Control*>& controls) {
  std::string names;
  for (const Control* control : controls) {
    names += (names.empty() ? "" : " ") + ToUtf8(control->Name());
  }
  return names;
}

TEST(FormLife, FirstTouchOfAnythingLoads) {
  for (const auto touch : {+[](TestForm& form) { form.chkAll.Value(); },
                           +[](TestForm& form) { form.cmdOK.SetCaption(u"Fine"); },
                           +[](TestForm& form) { form.Resize(7000, 5000); }}) {
    TestForm form;
    touch(form);
    EXPECT_EQ(form.Ran().substr(0, 4), "Load");
  }
}

TEST(FormLife, DesignRunsNoEventAndLoadDoes) {
  TestForm form;
  form.onLoad = [&form] {
    EXPECT_EQ(form.LoadState(), Form::State::Loading);
    form.optTwo.SetValue(true);
    form.txtName.SetText(u"loaded");
    form.lbxRows.SetListIndex(2);
  };
  form.EnsureLoaded();
  EXPECT_EQ(form.Ran(), "Load optTwo txtName lbxRows");
}

TEST(FormLife, HidingKeepsAndUnloadingDrops) {
  TestForm form;
  form.Unload();
  form.txtName.SetText(u"typed");
  form.Hide();
  EXPECT_EQ(form.txtName.Text(), u"typed");
  form.Unload();
  form.Unload();
  EXPECT_EQ(form.Ran(), "Load txtName Unload");
  EXPECT_EQ(form.txtName.Text(), u"designed");
  EXPECT_EQ(form.Ran(), "Load");
}

TEST(FormLife, AFailedLoadLeavesItUnloaded) {
  TestForm form;
  form.onLoad = [] { Raise(failure::kFileNotFound); };
  EXPECT_EQ(FailureOf([&] { form.Caption(); }), failure::kFileNotFound);
  EXPECT_EQ(form.LoadState(), Form::State::Unloaded);
  form.onLoad = nullptr;
  EXPECT_EQ(form.Caption(), u"A test");
}

TEST_F(Showing, ActivatesGivesFocusAndHidesAfterwards) {
  const auto form = New<TestForm>();
  host.user = [&](Form& shown) {
    EXPECT_TRUE(shown.Visible());
    EXPECT_TRUE(form->txtName.HasFocus());
    EXPECT_EQ(FailureOf([&] { shown.ShowModal(); }), 400);
    shown.UserClick();
  };
  form->ShowModal();
  EXPECT_EQ(form->Ran(), "Load Activate MouseDown Click");
  EXPECT_FALSE(form->Visible());
  EXPECT_EQ(form->LoadState(), Form::State::Loaded);
  form->ShowModal();
  EXPECT_EQ(form->Ran(), "Activate MouseDown Click");
}

TEST_F(Showing, AFormUnloadedByItsLoadIsNotShown) {
  TestForm form;
  form.onLoad = [&form] {
    form.Unload();
    form.lbxRows.AddItem(u"too late");
  };
  host.user = [](Form&) { FAIL() << "shown"; };
  form.ShowModal();
  EXPECT_FALSE(form.Visible());
}

TEST_F(Showing, TellsItsViewUntilItCloses) {
  struct View : IFormView {
    void ControlChanged(Control& control, Aspect aspect) override {
      heard += ToUtf8(control.Name()) + std::to_string(static_cast<int>(aspect)) + " ";
    }
    void FormChanged() override { heard += "form "; }
    void FormClosed() override { heard += "closed "; }
    std::string heard;
  } view;
  TestForm form;
  host.user = [&](Form& shown) {
    shown.SetView(&view);
    form.cmdOK.SetCaption(u"Go");
    form.cmdOK.SetCaption(u"Go");
    form.chkAll.UserClick();
    shown.Resize(6000, 4000);
    shown.UserClose();
    shown.SetView(nullptr);
  };
  form.ShowModal();
  EXPECT_EQ(view.heard, "cmdOK1 txtName7 chkAll7 chkAll4 form closed ");
}

TEST(FormFocus, NeedsAControlThatCanTakeIt) {
  TestForm form;
  EXPECT_EQ(FailureOf([&] { form.lblName.SetFocus(); }), 5);
  form.optTwo.SetFocus();
  EXPECT_TRUE(form.optTwo.HasFocus());
  form.cpGroup.SetEnabled(false);
  EXPECT_TRUE(form.optApart.HasFocus()) << "the next stop takes over";
  EXPECT_EQ(FailureOf([&] { form.optTwo.SetFocus(); }), 5);
}

TEST(FormFocus, TabOrder) {
  TestForm form;
  EXPECT_EQ(Names(form.TabOrder()),
            "txtName optOne optApart chkAll lbxRows lbxMany cbxPick cmdOK cmdCancel");
  form.optTwo.SetValue(true);
  form.lbxRows.SetEnabled(false);
  form.lbxMany.SetVisible(false);
  form.chkAll.SetTabStop(false);
  EXPECT_EQ(Names(form.TabOrder()), "txtName optTwo optApart cbxPick cmdOK cmdCancel");
}

TEST(FormFocus, EnterAndEscapeClickWhatIsUsable) {
  TestForm form;
  form.EnsureLoaded();
  form.Ran();
  form.UserEnter();
  EXPECT_EQ(form.Ran(), "cmdOK");
  form.cmdOK.SetEnabled(false);
  form.UserEnter();
  EXPECT_EQ(form.Ran(), "");
  form.cmdCancel.SetDefault(true);
  EXPECT_FALSE(form.cmdOK.Default());
  form.UserEnter();
  EXPECT_EQ(form.Ran(), "cmdCancel Unload");
}

TEST(FormResize, RunsListenersThenItsOwn) {
  TestForm form;
  form.ListenToResize([&] { form.Log("first"); });
  form.ListenToResize([&] { form.Log("second"); });
  form.Ran();
  form.Resize(7000, 3000);
  EXPECT_EQ(form.Ran(), "first second Resize");
  EXPECT_EQ(FailureOf([&] { form.Resize(-1, 10); }), 380);
  EXPECT_EQ(form.Height(), 3000);

  form.ListenToResize([&] { form.Unload(); });
  form.Resize(1, 1);
  EXPECT_EQ(form.Ran(), "first second Unload") << "nothing runs on an unloaded form";
  form.Resize(2, 2);
  EXPECT_EQ(form.Ran(), "Load Resize") << "listeners end with the load";
}

}  // namespace
}  // namespace brelmon
