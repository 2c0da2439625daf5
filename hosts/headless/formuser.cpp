// SPDX-License-Identifier: GPL-2.0-or-later
// Modal forms handed to a function, modeless ones kept in a list.
#include "hosts/headless/formuser.h"

#include "hosts/common/heldform.h"

namespace brelmon::headless {

void FormUser::ShowModal(Form& form) {
  const std::string name = ToUtf8(form.Name());
  const auto hands = hands_.find(form.Name());
  if (hands == hands_.end()) {
    form.Hide();
    host::Fail(failure::kNotSupported, "Nobody is there to answer the form " + name + ".");
  }
  const Hands work = hands->second;  // may register others
  try {
    work(form);
  } catch (...) {
    if (form.Visible()) form.Hide();
    throw;
  }
  if (!form.Visible()) return;
  form.Hide();
  host::Fail(failure::kNotSupported, "The form " + name + " was left open.");
}

class ModelessFrames::Frame : public IModelessFrame, public IWindowPosition {
 public:
  void Create(const Ref<IObject>& form) override { form_.Hold(form); }
  Text Caption() override { return caption_; }
  void SetCaption(const Text& caption) override { caption_ = caption; }
  bool Visible() override { return visible_; }
  void SetVisible(bool visible) override {
    form_.SetVisible(visible);
    visible_ = visible;
  }
  std::int32_t Width() override { return host::WholePixels(form_.There()->Width()); }
  std::int32_t Height() override { return host::WholePixels(form_.There()->Height()); }
  std::shared_ptr<Form> Content() const { return form_.IfThere(); }

 private:
  host::HeldForm form_;
  Text caption_;
  bool visible_ = false;
};

ModelessFrames::ModelessFrames() = default;

ModelessFrames::~ModelessFrames() {
  for (const auto& weak : frames_) {
    const auto frame = weak.lock();
    if (frame && frame->Content()) frame->SetVisible(false);
  }
}

Ref<IModelessFrame> ModelessFrames::NewFrame() {
  std::erase_if(frames_, [](const auto& frame) { return frame.expired(); });
  const auto frame = std::make_shared<Frame>();
  frames_.push_back(frame);
  return Ref<IModelessFrame>(frame);
}

std::vector<std::shared_ptr<Form>> ModelessFrames::Visible() const {
  std::vector<std::shared_ptr<Form>> forms;
  for (const auto& weak : frames_) {
    const auto frame = weak.lock();
    const auto form = frame && frame->Visible() ? frame->Content() : nullptr;
    if (form) forms.push_back(form);
  }
  return forms;
}

}  // namespace brelmon::headless
