// SPDX-License-Identifier: GPL-2.0-or-later
// The set of services, and the objects that the host makes for tools.
#include "hosts/qgis/services/hostservices.h"

#include <qgsvectorlayer.h>

#include <QFileInfo>

#include "hosts/columns/dissolve.h"
#include "hosts/columns/unfinished.h"
#include "hosts/columns/uniquevalues.h"
#include "hosts/common/clock.h"
#include "hosts/common/filesystem.h"
#include "hosts/common/folderworkspace.h"
#include "hosts/common/objectlists.h"
#include "hosts/common/processes.h"
#include "hosts/common/registry.h"
#include "hosts/common/systemlocale.h"
#include "hosts/qgis/data/layerobject.h"
#include "hosts/qgis/services/desktop.h"
#include "hosts/qgis/services/errordialog.h"
#include "hosts/qgis/services/gxdialog.h"
#include "hosts/qgis/services/gxlayer.h"
#include "hosts/qgis/services/openings.h"
#include "hosts/qgis/services/printer.h"
#include "hosts/qgis/services/summarizedialog.h"
#include "hosts/qgis/services/tablewindow.h"
#include "hosts/qgis/view/formhost.h"
#include "hosts/qgis/view/modelessframe.h"
#include "platform/map.h"
#include "platform/windows.h"
#include "platform/workspace.h"

namespace brelmon::qgis {
namespace {

/// The table of a new dBASE file; no project holds it yet.
Ref<ITable> OpenTableFile(const std::string& path) {
  const QString file = QString::fromStdString(path);
  auto layer = std::make_unique<QgsVectorLayer>(file, QFileInfo(file).completeBaseName(),
                                                QStringLiteral("ogr"));
  return ObjectOwning(std::move(layer)).As<ITable>(0);
}

class HostObjectsOfQgis : public IHostObjects {
 public:
  Ref<IErrorDialog> NewErrorDialog() override { return qgis::NewErrorDialog(); }
  Ref<IModelessFrame> NewModelessFrame() override { return qgis::NewModelessFrame(); }
  Ref<ITableWindow> NewTableWindow() override { return qgis::NewTableWindow(); }
  Ref<IDataStatistics> NewDataStatistics() override { return columns::NewDataStatistics(); }
  Ref<IStandaloneTable> NewStandaloneTable() override { return NewTable(); }
  Ref<IWorkspaceFactory> NewShapefileWorkspaceFactory() override {
    return host::NewWorkspaceFactory(u"Shapefile");
  }
  Ref<IBasicGeoprocessor> NewBasicGeoprocessor() override {
    return columns::NewBasicGeoprocessor(OpenTableFile);
  }
  Ref<IEnvelope> NewEnvelope() override { return host::NewEnvelope(); }
  Ref<IGxDialog> NewGxDialog() override { return qgis::NewGxDialog(); }
  Ref<IGxLayer> NewGxLayer() override { return qgis::NewGxLayer(); }
  Ref<ISummarizeDialog> NewSummarizeDialog() override { return qgis::NewSummarizeDialog(); }
};

class QgisServices : public HostServices {
 public:
  QgisServices() { columns::Unfinished::SetProcesses({host::OwnProcess, host::ProcessLives}); }
  Services Set() override {
    return {.messageBox = messageBox_.get(),
            .screen = screen_.get(),
            .clipboard = clipboard_.get(),
            .printer = printer_.get(),
            .clock = &clock_,
            .files = files_.get(),
            .registry = registry_.get(),
            .shell = shell_.get(),
            .objects = &objects_,
            .forms = forms_.get(),
            .locale = host::SystemLocale()};
  }

 private:
  std::unique_ptr<IMessageBox> messageBox_ = NewMessageBox();
  std::unique_ptr<IScreen> screen_ = NewScreen();
  std::unique_ptr<IClipboard> clipboard_ = NewClipboard();
  std::unique_ptr<IPrinter> printer_ = NewPrinter();
  host::HostClock clock_;
  std::unique_ptr<IFileSystem> files_ = host::NewFileSystem();
  std::unique_ptr<IRegistry> registry_ = host::NewMemoryRegistry();
  std::unique_ptr<IShell> shell_ = host::NewShell(WatchOpenings(*messageBox_));
  HostObjectsOfQgis objects_;
  std::unique_ptr<IFormHost> forms_ = NewFormHost();
};

}  // namespace

std::unique_ptr<HostServices> HostServices::Make() { return std::make_unique<QgisServices>(); }

}  // namespace brelmon::qgis
