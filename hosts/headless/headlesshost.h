// SPDX-License-Identifier: GPL-2.0-or-later
// The host without a screen: opens a module and stands in for application and user.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "hosts/common/clock.h"
#include "hosts/document/dataframe.h"
#include "hosts/headless/catalog.h"
#include "hosts/headless/console.h"
#include "hosts/headless/formuser.h"
#include "hosts/headless/printer.h"
#include "hosts/headless/progressbar.h"
#include "hosts/headless/tablewindows.h"
#include "platform/map.h"
#include "platform/services.h"

namespace brelmon::headless {

using document::TreeItem;

/// One at a time in a process. Its services become the process's own while it lives; a component
/// is handed the same set and must have let go of it before the host ends.
class HeadlessHost {
 public:
  /// `module` is a map document (.qgs, .qgz) or a folder that holds exactly one. Throws
  /// std::runtime_error with a reason to be shown.
  explicit HeadlessHost(const std::string& module);
  ~HeadlessHost();
  HeadlessHost(const HeadlessHost&) = delete;
  HeadlessHost& operator=(const HeadlessHost&) = delete;

  const std::string& MapDocument() const;  // system path
  Ref<IApplication> Application() const;
  Ref<IMxDocument> Document() const;
  const Services& HostServices() const;

  // What a user can do.
  /// False for a name that is no tab's.
  bool SetTab(const Text& name);
  void Pick(std::vector<Ref<IObject>> items);
  /// Selected graphics of the focus map, in its reference system. Throws std::runtime_error for
  /// a text that is no WKT.
  void SetGraphics(const std::vector<std::string>& wkts);
  /// Frames in their order, and a frame's items in tree order.
  std::vector<Ref<IMap>> Frames() const;
  static std::vector<TreeItem> ItemsOf(const Ref<IMap>& frame);

  // What a user can see and answer.
  ConsoleMessageBox& Boxes();
  FormUser& Forms();
  ModelessFrames& Modeless();
  CatalogAnswers& Catalog();
  TableWindows& Tables();
  ProgressBar& StatusBar();
  RecordedScreen& Screen();
  RecordedClipboard& Clipboard();
  TextFilePrinter& Printer();
  host::HostClock& Clock();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace brelmon::headless
