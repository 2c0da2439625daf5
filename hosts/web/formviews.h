// SPDX-License-Identifier: GPL-2.0-or-later
// Views of forms: what changed of them goes to the page, what a user does comes back.
#pragma once

#include "hosts/web/json.h"
#include "platform/application.h"
#include "toolkit/formhost.h"

namespace brelmon::web {

class FormHost : public IFormHost {
 public:
  void ShowModal(Form& form) override;
};

Ref<IModelessFrame> NewModelessFrame();

/// What of a form on the page changed since it was last asked: `form`, and `controls` by their
/// numbers. "null" for a form that isn't there.
std::string FormChanges(int name);
/// What a user does to a control (by number, -1 the form itself) or gave up: `verb` says what.
void FormEvent(const Message& message);

/// One control as the page draws it, and nothing of it that its kind hasn't.
void DescribeControl(Control& control, Json& json);
/// Does to a control what a user does.
void ControlEvent(Control& control, const Message& message);

}  // namespace brelmon::web
