// SPDX-License-Identifier: GPL-2.0-or-later
// The plug-in as QGIS loads it: its entry points, its start and its end.
#include <dlfcn.h>
#include <qgisinterface.h>
#include <qgisplugin.h>
#include <qgsmessagebar.h>

#include <QTimer>

#include "hosts/common/componentloader.h"
#include "hosts/qgis/document/application.h"
#include "hosts/qgis/document/graphics.h"
#include "hosts/qgis/document/panelfocus.h"
#include "hosts/qgis/plugin/framemenu.h"
#include "hosts/qgis/plugin/testdriver.h"
#include "hosts/qgis/plugin/toolbar.h"
#include "hosts/qgis/plugin/watch.h"
#include "hosts/qgis/services/errordialog.h"
#include "hosts/qgis/services/hostservices.h"
#include "hosts/qgis/session.h"
#include "hosts/qgis/userturn.h"
#include "hosts/qgis/view/modelessframe.h"
#include "hosts/servers/connection.h"

namespace brelmon::qgis {
namespace {

const QString& PluginName() {
  static const QString name = QStringLiteral("Brelmon Tools");
  return name;
}
const QString& PluginDescription() {
  static const QString text = QStringLiteral(
      "Tables, attribute queries, statistics and summaries for Earth-science learning modules");
  return text;
}
const QString& PluginCategory() {
  static const QString category = QStringLiteral("Vector");
  return category;
}
const QString& PluginVersion() {
  static const QString version = QStringLiteral(BRELMON_VERSION);
  return version;
}

/// Of the plug-in's own library.
std::filesystem::path OwnFolder() {
  Dl_info own{};
  ::dladdr(reinterpret_cast<void*>(&OwnFolder), &own);
  return std::filesystem::absolute(own.dli_fname).parent_path();
}

/// Everything that lives from loading to unloading, in order of making.
struct Loaded : Session {
  using Session::Session;
  // The component's forms must not be seen when their code goes.
  ~Loaded() override {
    WhenErrorDialogCloses({});
    HideModelessFrames();
  }

  std::unique_ptr<HostServices> services = HostServices::Make();
  std::unique_ptr<host::Component> component;
  Ref<IApplication> application;
  std::unique_ptr<Toolbar> toolbar;
  std::unique_ptr<GraphicsWatch> graphics;
  std::unique_ptr<Watch> watch;
  std::unique_ptr<PanelFocus> focus;
  std::unique_ptr<FrameMenu> frameMenu;
};

class Plugin : public QObject, public QgisPlugin {
 public:
  explicit Plugin(QgisInterface* iface)
      : QgisPlugin(PluginName(), PluginDescription(), PluginCategory(), PluginVersion(),
                   QgisPlugin::UI),
        iface_(iface) {}
  ~Plugin() override { End(); }

  void initGui() override {
    try {
      Begin();
    } catch (const std::exception& reason) {
      End();
      iface_->messageBar()->pushCritical(PluginName(), QString::fromUtf8(reason.what()));
    }
  }
  void unload() override { End(); }

 private:
  void Begin() {
    session_ = std::make_unique<Loaded>(*iface_);
    Loaded& session = *session_;
    session.component = host::Component::Load(host::Component::Find(OwnFolder(), BRELMON_COMPONENT),
                                              session.services->Set());
    session.application = NewApplication();
    session.toolbar = Toolbar::Make(*iface_, *session.component, session.application);
    const auto ask = [toolbar = session.toolbar.get()] { toolbar->AskSoon(); };
    session.graphics = GraphicsWatch::Start(*iface_->mapCanvas(), ask);
    session.watch = Watch::Start(*iface_, ask);
    session.focus = PanelFocus::Start(*iface_->layerTreeView(), ask);
    session.frameMenu = FrameMenu::Install(*iface_->layerTreeView());
    WhenErrorDialogCloses(ask);
    // Waiting for a server is a user's long work like any other.
    servers::SetWhileWaiting(CheckStep);
#ifdef BRELMON_TEST_DOORS
    QObject::connect(iface_, &QgisInterface::initializationCompleted, this,
                     [this] { QTimer::singleShot(0, this, [this] { StartTestDriver(); }); });
#endif
  }

#ifdef BRELMON_TEST_DOORS
  void StartTestDriver() {
    if (!session_) return;
    RunTestDriver({iface_, session_->component.get(), session_->application,
                   session_->services->Set(), &SelectGraphics, &InTurn, [this] { End(); }});
  }
#endif

  void End() {
    servers::SetWhileWaiting({});
    session_.reset();
  }

  QgisInterface* iface_;
  std::unique_ptr<Loaded> session_;
};

}  // namespace
}  // namespace brelmon::qgis

#define BRELMON_ENTRY extern "C" __attribute__((visibility("default")))

namespace {
const QString kNothing;
const QString kIcon = QStringLiteral(":/brelmon/tools.svg");
const QString kNotExperimental = QStringLiteral("false");
}  // namespace

BRELMON_ENTRY QgisPlugin* classFactory(QgisInterface* iface) {
  return new brelmon::qgis::Plugin(iface);
}
BRELMON_ENTRY const QString* name() { return &brelmon::qgis::PluginName(); }
BRELMON_ENTRY const QString* description() { return &brelmon::qgis::PluginDescription(); }
BRELMON_ENTRY const QString* category() { return &brelmon::qgis::PluginCategory(); }
BRELMON_ENTRY const QString* version() { return &brelmon::qgis::PluginVersion(); }
BRELMON_ENTRY const QString* icon() { return &kIcon; }
BRELMON_ENTRY const QString* experimental() { return &kNotExperimental; }
BRELMON_ENTRY const QString* create_date() { return &kNothing; }
BRELMON_ENTRY const QString* update_date() { return &kNothing; }
BRELMON_ENTRY int type() { return QgisPlugin::UI; }
BRELMON_ENTRY void unload(QgisPlugin* plugin) { delete plugin; }
