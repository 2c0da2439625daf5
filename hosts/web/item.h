// SPDX-License-Identifier: GPL-2.0-or-later
// What the classes of items share.
#pragma once

#include "hosts/web/items.h"

namespace brelmon::web {

/// Tells whoever listens that something that is shown has changed.
void TellChange();
int NextItemId();

/// What the page knows of any item.
class Item : public virtual IItem {
 public:
  explicit Item(ModuleItem facts) : facts_(std::move(facts)), checked_(facts_.visible) {}
  int Id() const override { return id_; }
  const ModuleItem& Facts() const override { return facts_; }
  Text ShownName() override { return FromUtf8(facts_.name); }
  bool Checked() const override { return checked_; }
  void SetChecked(bool checked) override {
    checked_ = checked;
    TellChange();
  }

 protected:
  ModuleItem facts_;

 private:
  int id_ = NextItemId();
  bool checked_;
};

/// A group, a raster, or a layer that has nothing to ask.
class PlainLayer : public Item, public ILayer {
 public:
  using Item::Item;
  Text Name() override { return ShownName(); }
  bool Valid() override { return Facts().valid; }
};

}  // namespace brelmon::web
