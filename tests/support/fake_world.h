// SPDX-License-Identifier: GPL-2.0-or-later
// A recording world in memory: services, one document, its maps, layers and tables.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/collection.h"
#include "platform/services.h"
#include "tests/support/fake_map.h"
#include "toolkit/controls.h"
#include "toolkit/formhost.h"

namespace brelmon::test {

/// The answer of a catalog dialog: {} cancels, else OK with the files chosen, of which there may be
/// none.
struct Browsed {
  Browsed() = default;
  Browsed(std::initializer_list<Text> chosen) : ok(true), files(chosen) {}
  Browsed(std::vector<Text> chosen) : ok(true), files(std::move(chosen)) {}
  bool ok = false;
  std::vector<Text> files;
};

/// While it lives it is the process's services. Everything asked of it is in `log`, in order.
class FakeWorld {
  struct Impl;
  std::unique_ptr<Impl> impl_;

 public:
  FakeWorld();
  ~FakeWorld();

  struct Box {
    Text text;
    int style;
    Text title;
  };
  struct Executed {
    Text file, directory;
  };

  // The open document. `path` is the last of the templates.
  Ref<FakeDocument> document;
  Ref<IApplication> application;
  Text path = u"C:\\Module\\map.qgs";
  Ref<FakeMap> map;  // the focus map at the start, "Layers"

  // What happened.
  Log& log;
  std::vector<Box> boxes;
  std::vector<Text> trails;  // every text that the error dialog was shown with
  Text clipboard;
  std::vector<Text> printed;
  bool printerMissing = false;
  std::vector<Executed> executed;
  std::vector<Text> ran;
  std::vector<Ref<IModelessFrame>> frames;
  std::vector<Ref<FakeTableWindow>> tableWindows;
  Pointer pointer = Pointer::Default;

  // What will happen.
  std::deque<int> answers;                           // of message boxes; then OK or No
  std::map<Text, std::string> files;                 // bytes by path, any case
  std::map<Text, Value> registry;                    // "CU\\key\\name" or "LM\\..."
  std::map<Text, std::function<void(Form&)>> users;  // by form name; none fails
  /// Answers of catalog dialogs.
  std::deque<Browsed> browsed;
  std::map<Text, Ref<ILayer>> layerFiles;  // by path, any case
  Ref<IBasicGeoprocessor> geoprocessor;    // none fails with 445
  Ref<ISummarizeDialog> summarizeDialog;
  std::map<Text, Ref<ICommandItem>> hostCommands;  // by identifier
  bool diskFull = false;                           // told when a written file is closed
  Text userName = u"student";
  Text tempPath = u"C:\\Temp\\";
  Date now;

  /// Value of a registry entry, as the tools read it.
  void SetRegistry(const Text& rootKeyName, Value value) { registry[rootKeyName] = value; }
  std::string* FileAt(const Text& filePath);
  bool HasFolder(const Text& folder) const;  // some file, or the document, lies in it

 private:
  Services before_;
};

/// The only trail's text, or all of them joined; empty if none was shown.
std::string Trails(const FakeWorld& world);

/// "[title] text", a line for each message box.
std::string Boxes(const FakeWorld& world);

/// The first number among the trails, 0 if there is none.
int FailureIn(const FakeWorld& world);

}  // namespace brelmon::test
