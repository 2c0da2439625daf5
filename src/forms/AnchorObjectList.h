// SPDX-License-Identifier: GPL-2.0-or-later
// The anchored controls of one form, placed anew at each of its resizes.
#pragma once

#include <memory>

#include "forms/AnchorObject.h"
#include "platform/collection.h"
#include "toolkit/form.h"

namespace brelmon {

/// A form makes its list in Form_Load, keeps it as a member, anchors its controls
/// (`list->Item(lbxTheme)->SetAnchors(AnchorStretch, AnchorStretch)`) and sets itself last.
class AnchorObjectList {
 public:
  AnchorObjectList() = default;
  AnchorObjectList(const AnchorObjectList&) = delete;
  AnchorObjectList& operator=(const AnchorObjectList&) = delete;

  /// Starts listening to the form's resizes, until the form is unloaded or the list ends. The
  /// form before, if there was one, is no longer heard.
  void SetForm(brelmon::Form& form);
  /// Null before one is set.
  brelmon::Form* Form() const { return mForm_; }

  std::int32_t Count() const { return objects_.Count(); }
  /// Appends an entry for the control, each time: entries are looked for, never their controls.
  Ref<AnchorObject> Item(Control& control);
  /// An entry of this list itself; for any other a new one is appended, as for a control.
  Ref<AnchorObject> Item(const Ref<AnchorObject>& entry);
  /// Position of an entry from 1, by identity; 0 for anything else, so for every control.
  std::int32_t IndexOf(const Control& control) const;
  std::int32_t IndexOf(const Ref<AnchorObject>& entry) const;
  /// Fails with 9 for anything but an entry of the list.
  void Remove(const Control& control);
  void Remove(const Ref<AnchorObject>& entry);

  /// Captures every control anew as scaled on both axes.
  void SetAnchors();
  void DoAnchors();

 private:
  std::int32_t IndexOfObject(const void* object) const;

  Collection<Ref<AnchorObject>> objects_;
  brelmon::Form* mForm_ = nullptr;
  std::shared_ptr<AnchorObjectList*> listening_;  // what a form's listener holds weakly
};

}  // namespace brelmon
