// SPDX-License-Identifier: GPL-2.0-or-later
// Forms on the page, modal and modeless. Nothing is known of any one form.
#include "hosts/web/formviews.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

#include "hosts/common/heldform.h"
#include "hosts/web/page.h"
#include "toolkit/controls.h"

namespace brelmon::web {
namespace {

class View;

std::map<int, View*>& Views() {
  static std::map<int, View*> views;
  return views;
}

class View : public IFormView {
 public:
  View(Form& form, bool modal, std::function<void()> closedByUser)
      : form_(form), modal_(modal), closedByUser_(std::move(closedByUser)) {
    form_.EnsureLoaded();
    form_.SetView(this);
    Views()[name_] = this;
    Tell(Json().Begin().Put("what", "form").Put("name", name_).Put("modal", modal_).End());
  }
  ~View() override {
    if (form_.View() == this) form_.SetView(nullptr);
    Views().erase(name_);
    Tell(Json().Begin().Put("what", "form-gone").Put("name", name_).End());
  }
  View(const View&) = delete;
  View& operator=(const View&) = delete;

  void ControlChanged(Control& control, Aspect aspect) override {
    // Where the focus is, is the form's to tell.
    if (aspect != Aspect::Focus) changed_.insert(&control);
    Dirty();
  }
  void FormChanged() override { Dirty(); }
  void FormClosed() override {
    closed_ = true;
    if (modal_) {
      Tell(Json().Begin().Put("what", "end-wait").Put("name", name_).Put("answer", 0).End());
    }
  }

  int Name() const { return name_; }
  bool Open() const { return !closed_; }
  Form& Shown() { return form_; }
  void SetTitle(const Text& title) {
    title_ = title;
    Dirty();
  }
  void CloseByUser() {
    if (closedByUser_) {
      closedByUser_();
    } else {
      form_.UserClose();
    }
  }

  std::string Changes() {
    told_ = false;
    Json json;
    json.Begin().Key("form").Begin();
    DescribeForm(json);
    json.End().Key("controls").Begin();
    const auto& all = form_.Controls();
    for (std::size_t i = 0; i < all.size(); ++i) {
      if (described_ && changed_.count(all[i]) == 0) continue;
      json.Key(std::to_string(i)).Begin();
      const auto frame = std::find(all.begin(), all.end(), all[i]->ContainerControl());
      json.Put("frame", static_cast<std::int32_t>(frame == all.end() ? -1 : frame - all.begin()));
      DescribeControl(*all[i], json);
      json.End();
    }
    json.End().End();
    described_ = true;
    changed_.clear();
    return json.Written();
  }

 private:
  void Dirty() {
    if (told_) return;
    told_ = true;
    Tell(Json().Begin().Put("what", "form-changed").Put("name", name_).End());
  }

  void DescribeForm(Json& json) {
    const auto& all = form_.Controls();
    const auto focus = std::find(all.begin(), all.end(), form_.Focused());
    json.Put("class", form_.Name())
        .Put("caption", title_.empty() ? form_.Caption() : title_)
        .Put("width", form_.Width() / kTwipsPerPixel)
        .Put("height", form_.Height() / kTwipsPerPixel)
        .Put("sizable", form_.Sizable())
        .Put("back", form_.BackColor())
        .Put("focus", static_cast<std::int32_t>(focus == all.end() ? -1 : focus - all.begin()));
    json.Key("tabs").BeginArray();
    for (Control* stop : form_.TabOrder()) {
      json.Add(static_cast<std::int32_t>(std::find(all.begin(), all.end(), stop) - all.begin()));
    }
    json.EndArray();
  }

  Form& form_;
  int name_ = NextName();
  bool modal_, closed_ = false, told_ = true, described_ = false;
  Text title_;
  std::function<void()> closedByUser_;
  std::set<Control*> changed_;
};

class ModelessFrame : public IModelessFrame,
                      public IWindowPosition,
                      public std::enable_shared_from_this<ModelessFrame> {
 public:
  void Create(const Ref<IObject>& form) override { form_.Take(form); }
  Text Caption() override { return caption_; }
  void SetCaption(const Text& caption) override {
    caption_ = caption;
    if (view_) view_->SetTitle(caption);
  }
  bool Visible() override { return view_ != nullptr; }
  void SetVisible(bool visible) override {
    const auto form = form_.Get();
    if (!visible) view_.reset();
    form_.Show(visible);
    if (!visible) return;
    if (view_) {
      Tell(Json().Begin().Put("what", "form-raise").Put("name", view_->Name()).End());
      return;
    }
    view_ = std::make_unique<View>(*form, false, [this] {
      const auto alive = shared_from_this();
      SetVisible(false);
    });
    if (!caption_.empty()) view_->SetTitle(caption_);
  }
  std::int32_t Width() override { return form_.Width(); }
  std::int32_t Height() override { return form_.Height(); }

 private:
  host::HeldForm form_;
  Text caption_;
  std::unique_ptr<View> view_;
};

View* OpenView(int name) {
  const auto hit = Views().find(name);
  return hit == Views().end() || !hit->second->Open() ? nullptr : hit->second;
}

/// What is done to a form itself.
void Do(View& view, const std::string& verb, const Message& message) {
  Form& form = view.Shown();
  if (verb == "close") view.CloseByUser();
  if (verb == "enter") form.UserEnter();
  if (verb == "escape") form.UserEscape();
  if (verb == "click") form.UserClick();
  if (verb == "move") form.UserMouseMove();
  if (verb == "activate") form.UserActivate();
  if (verb == "resize") {
    const auto twips = [&](const char* key, Twips now) {
      return static_cast<Twips>(
          std::lround(message.NumberAt(key, static_cast<double>(now / kTwipsPerPixel))) *
          kTwipsPerPixel);
    };
    form.Resize(twips("width", form.Width()), twips("height", form.Height()));
  }
}

}  // namespace

void FormHost::ShowModal(Form& form) {
  const auto alive = form.weak_from_this().lock();
  View view(form, true, nullptr);
  if (form.Visible()) Wait(view.Name());
}

Ref<IModelessFrame> NewModelessFrame() { return New<ModelessFrame>(); }

std::string FormChanges(int name) {
  View* view = OpenView(name);
  return view ? view->Changes() : "null";
}

void FormEvent(const Message& message) {
  View* view = OpenView(message.IntAt("form"));
  if (!view) return;
  const auto alive = view->Shown().weak_from_this().lock();
  const int number = message.IntAt("control", -1);
  const auto& all = view->Shown().Controls();
  if (number < 0 || static_cast<std::size_t>(number) >= all.size()) {
    return Do(*view, message.Utf8At("verb"), message);
  }
  ControlEvent(*all[static_cast<std::size_t>(number)], message);
}

}  // namespace brelmon::web
