// SPDX-License-Identifier: GPL-2.0-or-later
// Items and fields as a user names them: by a name that stands once, or by number.
#pragma once

#include <string>
#include <vector>

#include "cli/refusal.h"
#include "hosts/headless/headlesshost.h"

namespace brelmon::cli {

/// A data frame, or what stands in one.
struct Item {
  int Number = 0;  // in the listing, from 1
  int Depth = 0;   // 0 for data frames
  std::string Kind;
  Text Name;
  Ref<IObject> Object;
  Ref<IMap> Frame;
};

/// Frames in their order, each followed by its tree.
std::vector<Item> ItemsOf(const headless::HeadlessHost& host);
/// By "#n" or name: the exact name first, then regardless of case. Refuses what stands nowhere
/// or, telling the numbers, more than once.
const Item& FindItem(const std::vector<Item>& items, const std::string& word);
/// The same; refuses what has no fields.
Item FindTable(const headless::HeadlessHost& host, const std::string& word);
/// A frame's or layer's, as the contents view shows it.
bool IsValid(const Item& item);

struct Field {
  int Number = 0;  // in the listing, from 1
  Text Name, Alias;
  FieldType Type = FieldType::String;
  bool Visible = true;
};
std::vector<Field> FieldsOf(const Item& table);
/// By "#n", alias or name, as items are found.
const Field& FindField(const std::vector<Field>& fields, const Item& table,
                       const std::string& word);

/// The row of `item` in the dialogs' lists of items; refuses an item that they don't offer.
std::int32_t RowOnOffer(headless::HeadlessHost& host, const Item& item);

}  // namespace brelmon::cli
