// SPDX-License-Identifier: GPL-2.0-or-later
// Putting the parts together.
#include "hosts/headless/headlesshost.h"

#include <cpl_error.h>

#include <iostream>

#include "hosts/columns/unfinished.h"
#include "hosts/common/filesystem.h"
#include "hosts/common/processes.h"
#include "hosts/common/registry.h"
#include "hosts/common/shell.h"
#include "hosts/common/systemlocale.h"
#include "hosts/data/openpolicy.h"
#include "hosts/document/application.h"
#include "hosts/headless/document.h"
#include "hosts/headless/hostobjects.h"
#include "hosts/headless/project.h"

namespace brelmon::headless {
namespace {

/// GDAL keeps its messages to itself for as long as this lives; failures carry them on.
class QuietGdal {
 public:
  QuietGdal() {
    data::ConfineGdal();
    before_ = CPLSetErrorHandler(CPLQuietErrorHandler);
  }
  ~QuietGdal() { CPLSetErrorHandler(before_); }
  QuietGdal(const QuietGdal&) = delete;
  QuietGdal& operator=(const QuietGdal&) = delete;

 private:
  CPLErrorHandler before_;
};

/// Long enough for a desktop to find out that it has no program; one that stays is let go.
constexpr int kPatience = 2000;  // milliseconds

}  // namespace

struct HeadlessHost::Parts {
  explicit Parts(const std::string& module) : project(ReadProject(FindMapDocument(module))) {
    columns::Unfinished::SetProcesses({host::OwnProcess, host::ProcessLives});
  }

  Services Gathered() {
    Services set;
    set.messageBox = &boxes;
    set.screen = &screen;
    set.clipboard = &clipboard;
    set.printer = &printer;
    set.clock = &clock;
    set.files = files.get();
    set.registry = registry.get();
    set.shell = shell.get();
    set.objects = objects.get();
    set.forms = &forms;
    set.locale = host::SystemLocale();
    return set;
  }

  QuietGdal quiet;
  Project project;
  ConsoleMessageBox boxes{std::cerr};
  RecordedScreen screen;
  RecordedClipboard clipboard;
  TextFilePrinter printer;
  host::HostClock clock;
  FormUser forms;
  ModelessFrames modeless;
  TableWindows tables;
  std::shared_ptr<CatalogAnswers> catalog = std::make_shared<CatalogAnswers>();
  std::shared_ptr<ProgressBar> statusBar = std::make_shared<ProgressBar>();
  std::unique_ptr<IFileSystem> files = host::NewFileSystem();
  std::unique_ptr<IRegistry> registry = host::NewMemoryRegistry();
  std::unique_ptr<IShell> shell =
      host::NewShell([this](const std::unique_ptr<host::Opening>& opening) {
        opening->EndsWithin(kPatience);
        const Text complaint = opening->Complaint();
        if (!complaint.empty()) {
          boxes.Show(complaint, box::kExclamation, Text(host::kNotOpenedTitle));
        }
      });
  std::unique_ptr<IHostObjects> objects = NewHostObjects({&boxes, &modeless, &tables, catalog});
  Ref<IMxDocument> mapDocument = OpenDocument(project, [](const Text& identifier) {
    return document::FindDesktopCommand(identifier, kNoScreen);
  });
  Ref<IApplication> application = document::NewApplication(mapDocument, Ref<IStatusBar>(statusBar),
                                                           host::Paths().ToWindows(project.file));
  Services services = Gathered();
  ServicesScope scope{services};
};

HeadlessHost::HeadlessHost(const std::string& module) : parts_(std::make_unique<Parts>(module)) {}
HeadlessHost::~HeadlessHost() = default;

const std::string& HeadlessHost::MapDocument() const { return parts_->project.file; }
Ref<IApplication> HeadlessHost::Application() const { return parts_->application; }
Ref<IMxDocument> HeadlessHost::Document() const { return parts_->mapDocument; }
const Services& HeadlessHost::HostServices() const { return parts_->services; }

bool HeadlessHost::SetTab(const Text& name) {
  return parts_->mapDocument.As<document::IUserDocument>()->SetTab(name);
}

void HeadlessHost::Pick(std::vector<Ref<IObject>> items) {
  parts_->mapDocument.As<document::IUserDocument>()->Pick(std::move(items));
}

void HeadlessHost::SetGraphics(const std::vector<std::string>& wkts) {
  parts_->mapDocument->FocusMap().As<document::IDataFrame>()->SetGraphics(wkts);
}

std::vector<Ref<IMap>> HeadlessHost::Frames() const {
  return parts_->mapDocument.As<document::IUserDocument>()->Frames();
}

std::vector<TreeItem> HeadlessHost::ItemsOf(const Ref<IMap>& frame) {
  return frame.As<document::IDataFrame>()->Items();
}

ConsoleMessageBox& HeadlessHost::Boxes() { return parts_->boxes; }
FormUser& HeadlessHost::Forms() { return parts_->forms; }
ModelessFrames& HeadlessHost::Modeless() { return parts_->modeless; }
CatalogAnswers& HeadlessHost::Catalog() { return *parts_->catalog; }
TableWindows& HeadlessHost::Tables() { return parts_->tables; }
ProgressBar& HeadlessHost::StatusBar() { return *parts_->statusBar; }
RecordedScreen& HeadlessHost::Screen() { return parts_->screen; }
RecordedClipboard& HeadlessHost::Clipboard() { return parts_->clipboard; }
TextFilePrinter& HeadlessHost::Printer() { return parts_->printer; }
host::HostClock& HeadlessHost::Clock() { return parts_->clock; }

}  // namespace brelmon::headless
