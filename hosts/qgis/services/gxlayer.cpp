// SPDX-License-Identifier: GPL-2.0-or-later
// The layer of a layer definition file.
#include "hosts/qgis/services/gxlayer.h"

#include <qgslayerdefinition.h>
#include <qgsmaplayer.h>
#include <qgspathresolver.h>
#include <qgsproject.h>
#include <qgsreadwritecontext.h>

#include <QDomDocument>
#include <QFile>
#include <filesystem>

#include "hosts/common/hostfailure.h"
#include "hosts/common/paths.h"
#include "hosts/data/openpolicy.h"
#include "hosts/qgis/data/layerobject.h"
#include "hosts/qgis/qgishost.h"

namespace brelmon::qgis {
namespace {

QDomDocument Read(const Text& path) {
  const auto system = host::Paths().ToSystem(path);
  if (!system || !host::FileExists(*system)) host::Fail(failure::kFileNotFound);
  QFile file(QString::fromStdString(*system));
  if (!file.open(QIODevice::ReadOnly)) host::Fail(failure::kPathFileAccess);
  QDomDocument document;
  QString reason;
  if (!document.setContent(&file, &reason)) {
    host::Fail(failure::kRefused, u"'" + path + u"' is no layer definition: " + FromQt(reason));
  }
  return document;
}

// Each loading is a layer of its own, even beside an earlier one of the same file.
void Rename(QDomElement layer) {
  const QDomElement id = layer.firstChildElement(QStringLiteral("id"));
  const QString name = layer.firstChildElement(QStringLiteral("layername")).text();
  QDomNode text = id.firstChild();
  if (!text.isNull()) text.setNodeValue(QgsMapLayer::generateId(name));
}

/// A layer file's data are of the kinds that are opened without a screen, too; what comes from a
/// provider of QGIS's own is QGIS's.
void RefuseWhatIsNotOpened(const QDomElement& layer, const Text& path) {
  const auto text = [&](const char* tag) {
    return layer.firstChildElement(QString::fromLatin1(tag)).text().toStdString();
  };
  const std::string provider = text("provider");
  const bool pixels = provider == "gdal";
  if (!pixels && provider != "ogr" && provider != "delimitedtext" && provider != "spatialite") {
    return;
  }
  const std::filesystem::path file = host::Paths().ToSystem(path).value();
  data::SourceAddress address = data::AddressOf(
      {pixels ? "ogr" : provider, text("datasource"), text("subset"), {}}, file.parent_path());
  address.problem.clear();  // what QGIS may know better
  const std::string refusal =
      data::RefusalOf(address, pixels ? data::Content::Pixels : data::Content::Rows);
  if (refusal.empty()) return;
  Raise(failure::kRefused, u"The data of '" + path + u"' are not opened: " + FromUtf8(refusal), 0);
}

std::unique_ptr<QgsMapLayer> LoadOne(const Text& path) {
  QDomDocument document = Read(path);
  const QDomNodeList layers = document.elementsByTagName(QStringLiteral("maplayer"));
  if (layers.size() != 1) {
    host::Fail(
        failure::kRefused,
        u"'" + path +
            (layers.isEmpty() ? Text(u"' holds no layer.")
                              : Text(u"' holds several layers: a layer file is to hold one.")));
  }
  RefuseWhatIsNotOpened(layers.at(0).toElement(), path);
  Rename(layers.at(0).toElement());
  QgsReadWriteContext context;
  context.setPathResolver(
      QgsPathResolver(QString::fromStdString(host::Paths().ToSystem(path).value())));
  context.setProjectTranslator(QgsProject::instance());
  const auto loaded = QgsLayerDefinition::loadLayerDefinitionLayers(document, context);
  if (loaded.isEmpty()) {
    host::Fail(failure::kRefused, u"QGIS can't read the layer of '" + path + u"'.");
  }
  return std::unique_ptr<QgsMapLayer>(loaded.front());
}

class GxLayer : public virtual IGxLayer, public virtual IGxFile, public virtual IGxObject {
 public:
  Text FullName() override { return path_; }
  Text Path() override { return path_; }
  void SetPath(const Text& path) override {
    path_ = path;
    layer_.Reset();
  }
  Ref<ILayer> Layer() override {
    if (!layer_) {
      const auto object = ObjectOwning(LoadOne(path_));
      layer_ = object.TryAs<ILayer>();
      if (!layer_) {
        host::Fail(failure::kTypeMismatch, u"'" + path_ + u"' holds a table, not a layer.");
      }
    }
    return layer_;
  }

 private:
  Text path_;
  Ref<ILayer> layer_;
};

}  // namespace

Ref<IGxLayer> NewGxLayer() { return New<GxLayer>(); }

}  // namespace brelmon::qgis
