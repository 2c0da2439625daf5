// SPDX-License-Identifier: GPL-2.0-or-later
// The list of a form's anchored controls.
#include "forms/AnchorObjectList.h"

namespace brelmon {

void AnchorObjectList::SetForm(brelmon::Form& form) {
  listening_ = std::make_shared<AnchorObjectList*>(this);
  form.ListenToResize([heard = std::weak_ptr<AnchorObjectList*>(listening_)] {
    if (const auto list = heard.lock()) (*list)->DoAnchors();
  });
  mForm_ = &form;
}

Ref<AnchorObject> AnchorObjectList::Item(Control& control) {
  if (const std::int32_t position = IndexOf(control)) return objects_.Item(position);
  const auto object = New<AnchorObject>();
  object->SetControl(control);
  objects_.Add(object);
  return object;
}

Ref<AnchorObject> AnchorObjectList::Item(const Ref<AnchorObject>& entry) {
  if (IndexOf(entry) != 0) return entry;
  const auto object = New<AnchorObject>();
  object->SetControl(Ref<IObject>(entry));
  objects_.Add(object);
  return object;
}

std::int32_t AnchorObjectList::IndexOfObject(const void* object) const {
  for (std::int32_t position = 1; position <= objects_.Count(); ++position) {
    if (objects_.Item(position).Get() == object) return position;
  }
  return 0;
}

std::int32_t AnchorObjectList::IndexOf(const Control& control) const {
  return IndexOfObject(&control);
}

std::int32_t AnchorObjectList::IndexOf(const Ref<AnchorObject>& entry) const {
  return IndexOfObject(entry.Get());
}

void AnchorObjectList::Remove(const Control& control) { objects_.Remove(IndexOf(control)); }

void AnchorObjectList::Remove(const Ref<AnchorObject>& entry) { objects_.Remove(IndexOf(entry)); }

void AnchorObjectList::SetAnchors() {
  for (std::int32_t position = 1; position <= objects_.Count(); ++position) {
    objects_.Item(position)->SetAnchors(AnchorScaled, AnchorScaled);
  }
}

void AnchorObjectList::DoAnchors() {
  for (std::int32_t position = 1; position <= objects_.Count(); ++position) {
    objects_.Item(position)->DoAnchors();
  }
}

}  // namespace brelmon
