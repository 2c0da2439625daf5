// SPDX-License-Identifier: GPL-2.0-or-later
// One open module: the page's questions and deeds by name.
#pragma once

#include "hosts/web/component.h"
#include "hosts/web/tablerows.h"
#include "hosts/web/toolbar.h"
#include "hosts/web/webhost.h"

namespace brelmon::web {

class Session {
 public:
  explicit Session(const std::string& moduleJson) : host_(moduleJson) {}
  WebHost& Host() { return host_; }
  /// Makes document, component and toolbar.
  void Open(const Message& settings);

  /// JSON; never runs a tool. An unknown question gives "null".
  std::string Ask(const std::string& what, const Message& message);
  /// May run tools and wait for the user. An unknown deed does nothing.
  void Do(const std::string& what, const Message& message);

 private:
  std::string Rows(const Message& message);
  std::string Shapes(const Message& message);
  std::string FileBytes(const Message& message);
  void Pick(const Message& message);
  void Focus(const Message& message);
  void Extent(const Message& message);
  void SelectRows(const Message& message);
  void SelectInBox(const Message& message);
  void AddTable(const Message& message);
  Ref<ITableItem> TableOf(const Message& message) const;

  WebHost host_;
  std::unique_ptr<Component> component_;
  std::unique_ptr<Toolbar> toolbar_;
  TableRows rows_;
  std::string lent_;  // bytes that the page is reading
};

}  // namespace brelmon::web
