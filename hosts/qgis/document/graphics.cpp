// SPDX-License-Identifier: GPL-2.0-or-later
// Selected annotation items as graphics.
#include "hosts/qgis/document/graphics.h"

#include <qgsannotationlayer.h>
#include <qgsannotationlineitem.h>
#include <qgsannotationmarkeritem.h>
#include <qgsannotationpointtextitem.h>
#include <qgsannotationpolygonitem.h>
#include <qgscurvepolygon.h>
#include <qgsfillsymbol.h>
#include <qgsfillsymbollayer.h>
#include <qgsmapcanvas.h>
#include <qgsmaptoolmodifyannotation.h>
#include <qgsproject.h>

#include <QPointer>
#include <algorithm>

#include "hosts/common/hostfailure.h"
#include "hosts/common/objectlists.h"
#include "hosts/qgis/data/geometry.h"
#include "hosts/qgis/session.h"

namespace brelmon::qgis {
namespace {

using SelectedIds = std::vector<GraphicId>;

SelectedIds& Selected() { return Session::Running().Of<SelectedIds>(); }

QgsAnnotationLayer* LayerOf(const GraphicId& id) {
  QgsAnnotationLayer* main = QgsProject::instance()->mainAnnotationLayer();
  if (id.layer.isEmpty() || (main && id.layer == main->id())) return main;
  return QgsProject::instance()->mapLayer<QgsAnnotationLayer*>(id.layer);
}

QgsAnnotationItem* ItemOf(const GraphicId& id) {
  QgsAnnotationLayer* layer = LayerOf(id);
  return layer ? layer->item(id.item) : nullptr;
}

QgsGeometry ShapeOf(const QgsAnnotationItem& item) {
  if (const auto* line = dynamic_cast<const QgsAnnotationLineItem*>(&item)) {
    return QgsGeometry(line->geometry()->clone());
  }
  if (const auto* polygon = dynamic_cast<const QgsAnnotationPolygonItem*>(&item)) {
    return QgsGeometry(polygon->geometry()->clone());
  }
  if (const auto* marker = dynamic_cast<const QgsAnnotationMarkerItem*>(&item)) {
    return QgsGeometry::fromPointXY(marker->geometry());
  }
  if (const auto* text = dynamic_cast<const QgsAnnotationPointTextItem*>(&item)) {
    return QgsGeometry::fromPointXY(text->point());
  }
  return QgsGeometry::fromRect(item.boundingBox());
}

/// QGIS draws annotations above all layers: a filled one would hide what it selects.
void ShowOutlineOnly(const GraphicId& id) {
  const auto* polygon = dynamic_cast<const QgsAnnotationPolygonItem*>(ItemOf(id));
  if (!polygon) return;
  std::unique_ptr<QgsFillSymbol> symbol(polygon->symbol()->clone());
  bool filled = false;
  for (int i = 0; i < symbol->symbolLayerCount(); ++i) {
    auto* simple = dynamic_cast<QgsSimpleFillSymbolLayer*>(symbol->symbolLayer(i));
    if (simple && simple->brushStyle() == Qt::NoBrush) continue;
    filled = true;
    if (simple) {
      simple->setBrushStyle(Qt::NoBrush);
    } else {
      symbol->changeSymbolLayer(i, new QgsSimpleFillSymbolLayer(QColor(), Qt::NoBrush));
    }
  }
  if (!filled) return;
  QgsAnnotationPolygonItem* outline = const_cast<QgsAnnotationPolygonItem*>(polygon)->clone();
  outline->setSymbol(symbol.release());
  LayerOf(id)->replaceItem(id.item, outline);
}

class Element : public virtual IElement {
 public:
  explicit Element(GraphicId id) : id_(std::move(id)) {}
  Ref<IGeometry> Geometry() override {
    const QgsAnnotationItem* item = ItemOf(id_);
    if (!item) host::Fail(failure::kNoSuchObject, u"The graphic is no longer on the map.");
    return GeometryObject({ShapeOf(*item), LayerOf(id_)->crs()});
  }

 private:
  GraphicId id_;
};

std::vector<GraphicId> StillThere() {
  std::vector<GraphicId> ids;
  for (const GraphicId& id : Selected()) {
    if (ItemOf(id)) ids.push_back(id);
  }
  return ids;
}

class Container : public virtual IGraphicsContainerSelect {
 public:
  std::int32_t ElementSelectionCount() override {
    return static_cast<std::int32_t>(StillThere().size());
  }
  Ref<IEnumElement> SelectedElements() override {
    std::vector<Ref<IElement>> elements;
    for (const GraphicId& id : StillThere()) {
      ShowOutlineOnly(id);
      elements.push_back(New<Element>(id));
    }
    return host::NewEnumElement(std::move(elements));
  }
};

class Watch : public GraphicsWatch {
 public:
  Watch(QgsMapCanvas& canvas, std::function<void()> changed)
      : context_(new QObject), changed_(std::move(changed)) {
    QObject::connect(&canvas, &QgsMapCanvas::mapToolSet, context_.get(),
                     [this](QgsMapTool* tool) { Follow(tool); });
    Follow(canvas.mapTool());
  }

 private:
  void Follow(QgsMapTool* tool) {
    auto* modify = qobject_cast<QgsMapToolModifyAnnotation*>(tool);
    if (!modify || modify == followed_) return;
    followed_ = modify;
    QObject::connect(modify, &QgsMapToolModifyAnnotation::itemSelected, context_.get(),
                     [this](QgsAnnotationLayer* layer, const QString& item) {
                       Add({layer ? layer->id() : QString(), item});
                     });
    QObject::connect(modify, &QgsMapToolModifyAnnotation::selectionCleared, context_.get(),
                     [this] { Tell({}); });
  }
  // The tool shows one at a time: those picked one after the other add up until it lets go.
  void Add(GraphicId id) {
    auto graphics = Selected();
    const auto same = [&id](const GraphicId& each) {
      return each.layer == id.layer && each.item == id.item;
    };
    if (std::none_of(graphics.begin(), graphics.end(), same)) graphics.push_back(std::move(id));
    Tell(std::move(graphics));
  }
  void Tell(std::vector<GraphicId> graphics) {
    SelectGraphics(std::move(graphics));
    changed_();
  }

  std::unique_ptr<QObject> context_;
  std::function<void()> changed_;
  QPointer<QgsMapToolModifyAnnotation> followed_;
};

}  // namespace

std::unique_ptr<GraphicsWatch> GraphicsWatch::Start(QgsMapCanvas& canvas,
                                                    std::function<void()> changed) {
  return std::make_unique<Watch>(canvas, std::move(changed));
}

void SelectGraphics(std::vector<GraphicId> graphics) { Selected() = std::move(graphics); }

Ref<IGraphicsContainerSelect> SelectedGraphics() { return New<Container>(); }

}  // namespace brelmon::qgis
