// SPDX-License-Identifier: GPL-2.0-or-later
// Putting the parts together.
#include "hosts/web/webhost.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "hosts/columns/dissolve.h"
#include "hosts/columns/uniquevalues.h"
#include "hosts/common/folderworkspace.h"
#include "hosts/common/objectlists.h"
#include "hosts/common/registry.h"
#include "hosts/document/application.h"
#include "hosts/web/catalog.h"
#include "hosts/web/dataframe.h"
#include "hosts/web/formviews.h"
#include "hosts/web/page.h"
#include "hosts/web/services.h"

namespace brelmon::web {
namespace {

constexpr const char* kNoDialog = "a page has none";

void TellFile(const std::string& path) {
  Tell(Json().Begin().Put("what", "file").Put("path", path).End());
}

class HostObjects : public IHostObjects {
 public:
  HostObjects(TableWindows& tables, const Catalog& catalog) : tables_(tables), catalog_(catalog) {}
  Ref<IErrorDialog> NewErrorDialog() override { return web::NewErrorDialog(); }
  Ref<IModelessFrame> NewModelessFrame() override { return web::NewModelessFrame(); }
  Ref<ITableWindow> NewTableWindow() override { return tables_.NewWindow(); }
  Ref<IDataStatistics> NewDataStatistics() override { return columns::NewDataStatistics(); }
  Ref<IStandaloneTable> NewStandaloneTable() override { return web::NewStandaloneTable(); }
  Ref<IWorkspaceFactory> NewShapefileWorkspaceFactory() override {
    return host::NewWorkspaceFactory(u"Shapefile");
  }
  Ref<IBasicGeoprocessor> NewBasicGeoprocessor() override {
    return columns::NewBasicGeoprocessor([this](const std::string& path) {
      TellFile(path);
      const std::string page = std::filesystem::path(path).replace_extension(".cpg").string();
      if (host::FileExists(page)) TellFile(page);
      return OpenTable(path, catalog_.sources);
    });
  }
  Ref<IEnvelope> NewEnvelope() override { return host::NewEnvelope(); }
  Ref<IGxDialog> NewGxDialog() override { return web::NewGxDialog(); }
  Ref<IGxLayer> NewGxLayer() override { return web::NewGxLayer(catalog_); }
  Ref<ISummarizeDialog> NewSummarizeDialog() override {
    return document::NewDesktopSummarize(kNoDialog);
  }

 private:
  TableWindows& tables_;
  const Catalog& catalog_;
};

std::string SystemPath(const std::string& windowsPath) {
  const auto system = host::Paths().ToSystem(FromUtf8(windowsPath));
  if (!system) throw std::runtime_error("module.json: no path of a document: " + windowsPath);
  return *system;
}

void WriteFile(const std::string& path, const std::string& bytes) {
  std::error_code ignored;
  std::filesystem::create_directories(std::filesystem::path(path).parent_path(), ignored);
  std::ofstream out(path, std::ios::binary);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace

struct WebHost::Parts {
  explicit Parts(const std::string& json)
      : module(ReadModule(json)),
        file(SystemPath(module.document)),
        folder(std::filesystem::path(file).parent_path().string()) {
    for (const SourceFacts& facts : module.sources) {
      catalog.sources[facts.id] = std::make_shared<Source>(facts);
    }
    catalog.folder = folder;
    catalog.layerFiles = module.layerFiles;
    WriteFile(file, "");
    for (const std::string& path : module.media) WriteFile(folder + "/" + path, "");
    for (const LayerFile& layer : module.layerFiles) WriteFile(folder + "/" + layer.path, "");
    shell = std::make_unique<Shell>(
        folder, std::set<std::string>(module.media.begin(), module.media.end()));
  }

  void MakeFolders() const {
    // Where tables of a source stand, so that new ones can be put beside them.
    for (const SourceFacts& facts : module.sources) {
      const auto workspace = host::Paths().ToSystem(FromUtf8(facts.workspace));
      std::error_code ignored;
      if (!workspace || facts.workspace.empty()) continue;
      std::filesystem::create_directories(facts.workspace == facts.path
                                              ? std::filesystem::path(*workspace).parent_path()
                                              : std::filesystem::path(*workspace),
                                          ignored);
    }
  }

  void Open(const Locale& locale) {
    MakeFolders();
    const auto changed = [] { Tell(Json().Begin().Put("what", "changed").End()); };
    SetItemListener(changed);
    DocumentListener listener;
    listener.changed = changed;
    listener.moved = [](int id) {
      Tell(Json().Begin().Put("what", "moved").Put("frame", std::int32_t{id}).End());
    };
    mapDocument = OpenDocument(
        module, catalog.sources,
        [](const Text& identifier) { return document::FindDesktopCommand(identifier, kNoDialog); },
        listener);
    application =
        document::NewApplication(mapDocument, New<web::StatusBar>(), host::Paths().ToWindows(file));
    services = {&boxes,         &screen,     &clipboard,    &printer, &clock, files.get(),
                registry.get(), shell.get(), objects.get(), &forms,   locale};
    scope = std::make_unique<ServicesScope>(services);
  }

  Module module;
  std::string file, folder;
  Catalog catalog;
  MessageBoxes boxes;
  web::Screen screen;
  web::Clipboard clipboard;
  web::Printer printer;
  host::HostClock clock;
  web::FormHost forms;
  TableWindows tables;
  std::unique_ptr<IFileSystem> files = NewFileSystem(TellFile);
  std::unique_ptr<IRegistry> registry = host::NewMemoryRegistry();
  std::unique_ptr<IShell> shell;
  std::unique_ptr<IHostObjects> objects = std::make_unique<web::HostObjects>(tables, catalog);
  Ref<IMxDocument> mapDocument;
  Ref<IApplication> application;
  Services services;
  std::unique_ptr<ServicesScope> scope;
};

WebHost::WebHost(const std::string& moduleJson) : parts_(std::make_unique<Parts>(moduleJson)) {}
WebHost::~WebHost() { SetItemListener(nullptr); }

void WebHost::PutTable(const std::string& file, std::string bytes) {
  for (const auto& [id, source] : parts_->catalog.sources) {
    if (source->Facts().file == file) return source->Fill(std::move(bytes));
  }
}

void WebHost::PutFile(const std::string& path, const std::string& bytes) {
  WriteFile(path.substr(0, 1) == "/" ? path : parts_->folder + "/" + path, bytes);
}

void WebHost::Open(const Locale& locale) { parts_->Open(locale); }

const Sources& WebHost::AllSources() const { return parts_->catalog.sources; }
const Module& WebHost::Facts() const { return parts_->module; }
const std::string& WebHost::Folder() const { return parts_->folder; }
Ref<IApplication> WebHost::Application() const { return parts_->application; }
Ref<IMxDocument> WebHost::Document() const { return parts_->mapDocument; }
document::IUserDocument& WebHost::User() const {
  return *parts_->mapDocument.As<document::IUserDocument>();
}
const Services& WebHost::HostServices() const { return parts_->services; }
TableWindows& WebHost::Tables() const { return parts_->tables; }
host::HostClock& WebHost::Clock() const { return parts_->clock; }

void WebHost::SetGraphics(const std::vector<std::string>& wkts) {
  parts_->mapDocument->FocusMap().As<document::IDataFrame>()->SetGraphics(wkts);
}

Ref<IObject> WebHost::ItemOf(int id) const {
  for (const Ref<IMap>& frame : User().Frames()) {
    for (const document::TreeItem& item : frame.As<document::IDataFrame>()->Items()) {
      if (item.object.As<IItem>(0)->Id() == id) return item.object;
    }
  }
  return {};
}

Ref<IMap> WebHost::FrameOf(int id) const {
  for (const Ref<IMap>& frame : User().Frames()) {
    if (FrameId(frame) == id) return frame;
  }
  return {};
}

}  // namespace brelmon::web
