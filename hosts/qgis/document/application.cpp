// SPDX-License-Identifier: GPL-2.0-or-later
// The application and its map document.
#include "hosts/qgis/document/application.h"

#include <qgisinterface.h>
#include <qgslayertreegroup.h>
#include <qgslayertreeview.h>
#include <qgsproject.h>

#include <QFileInfo>

#include "hosts/common/hostfailure.h"
#include "hosts/common/paths.h"
#include "hosts/qgis/document/commandbars.h"
#include "hosts/qgis/document/contentsview.h"
#include "hosts/qgis/document/dataframes.h"
#include "hosts/qgis/document/statusbar.h"
#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/userturn.h"

namespace brelmon::qgis {
namespace {

class Maps : public virtual IMaps {
 public:
  std::int32_t Count() override { return static_cast<std::int32_t>(FrameNodes().size()); }
  Ref<IMap> Item(std::int32_t index) override {
    const auto frames = FrameNodes();
    if (index < 0 || static_cast<std::size_t>(index) >= frames.size())
      host::Fail(failure::kSubscript);
    return FrameOf(*frames[static_cast<std::size_t>(index)]);
  }
  Ref<IMap> Create() override { return NewFrame(); }
  void Add(const Ref<IMap>& map) override { AddFrame(map); }
  void Remove(const Ref<IMap>& map) override { RemoveFrame(map); }
};

class MxDocument : public virtual IMxDocument, public virtual IDocument {
 public:
  Ref<IMap> FocusMap() override { return FrameOf(*FocusNode()); }
  Ref<IActiveView> ActiveView() override { return FocusMap().As<IActiveView>(0); }
  void SetActiveView(const Ref<IActiveView>& view) override {
    QgsLayerTreeGroup* frame = NodeOf(view);
    if (!frame) {
      host::Fail(failure::kInvalidCall, "The view is none of the document's data frames.");
    }
    FocusOn(*frame);
  }
  Ref<IMaps> Maps() override { return New<qgis::Maps>(); }
  Ref<IContentsView> CurrentContentsView() override { return CurrentContents(); }
  void SetCurrentContentsView(const Ref<IContentsView>& view) override { BringToFront(view); }
  Ref<IContentsView> ContentsView(std::int32_t index) override { return ContentsViewAt(index); }
  Ref<IObject> SelectedItem() override { return ContentsSelection(); }
  void UpdateContents() override { Iface().layerTreeView()->viewport()->update(); }
  Ref<ICommandBars> CommandBars() override { return NewCommandBars(); }
};

class Templates : public virtual ITemplates {
 public:
  std::int32_t Count() override { return 1; }
  Text Item(std::int32_t index) override {
    if (index != 0) host::Fail(failure::kSubscript);
    const QString file = QgsProject::instance()->fileName();
    if (file.isEmpty()) {
      EndTurn(failure::kPathNotFound,
              u"The project was never saved, so it has no folder in which the module's files could "
              u"stand. Save it first.");
    }
    return host::Paths().ToWindows(QFileInfo(file).absoluteFilePath().toStdString());
  }
};

class Application : public virtual IApplication {
 public:
  Ref<IDocument> Document() override { return document_; }
  Ref<IStatusBar> StatusBar() override { return statusBar_; }
  Ref<ITemplates> Templates() override { return New<qgis::Templates>(); }
  std::int32_t hWnd() override { return static_cast<std::int32_t>(Iface().mainWindow()->winId()); }

 private:
  Ref<IDocument> document_ = New<MxDocument>();
  Ref<IStatusBar> statusBar_ = NewStatusBar();
};

}  // namespace

Ref<IApplication> NewApplication() { return New<Application>(); }

}  // namespace brelmon::qgis
