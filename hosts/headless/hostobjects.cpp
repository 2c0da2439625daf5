// SPDX-License-Identifier: GPL-2.0-or-later
// One factory for the host's objects.
#include "hosts/headless/hostobjects.h"

#include "hosts/columns/dissolve.h"
#include "hosts/columns/uniquevalues.h"
#include "hosts/common/folderworkspace.h"
#include "hosts/common/objectlists.h"
#include "hosts/document/application.h"
#include "hosts/headless/table.h"

namespace brelmon::headless {
namespace {

class HostObjectsFactory : public IHostObjects {
 public:
  explicit HostObjectsFactory(ObjectSurroundings surroundings) : at_(std::move(surroundings)) {}
  Ref<IErrorDialog> NewErrorDialog() override { return headless::NewErrorDialog(*at_.boxes); }
  Ref<IModelessFrame> NewModelessFrame() override { return at_.modeless->NewFrame(); }
  Ref<ITableWindow> NewTableWindow() override { return at_.tables->NewWindow(); }
  Ref<IDataStatistics> NewDataStatistics() override { return columns::NewDataStatistics(); }
  Ref<IStandaloneTable> NewStandaloneTable() override { return headless::NewStandaloneTable(); }
  Ref<IWorkspaceFactory> NewShapefileWorkspaceFactory() override {
    return host::NewWorkspaceFactory(u"Shapefile");
  }
  Ref<IBasicGeoprocessor> NewBasicGeoprocessor() override {
    return columns::NewBasicGeoprocessor(OpenTable);
  }
  Ref<IEnvelope> NewEnvelope() override { return host::NewEnvelope(); }
  Ref<IGxDialog> NewGxDialog() override { return headless::NewGxDialog(at_.catalog); }
  Ref<IGxLayer> NewGxLayer() override { return headless::NewGxLayer(); }
  Ref<ISummarizeDialog> NewSummarizeDialog() override {
    return document::NewDesktopSummarize(kNoScreen);
  }

 private:
  ObjectSurroundings at_;
};

}  // namespace

std::unique_ptr<IHostObjects> NewHostObjects(ObjectSurroundings surroundings) {
  return std::make_unique<HostObjectsFactory>(std::move(surroundings));
}

}  // namespace brelmon::headless
