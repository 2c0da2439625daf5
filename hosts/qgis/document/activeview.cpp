// SPDX-License-Identifier: GPL-2.0-or-later
// The map canvas as the view of the frame in focus.
#include "hosts/qgis/document/activeview.h"

#include <qgscoordinatetransform.h>
#include <qgsexception.h>
#include <qgsmapcanvas.h>
#include <qgsproject.h>

#include "hosts/qgis/data/geometry.h"
#include "hosts/qgis/qgishost.h"

namespace brelmon::qgis {
namespace {

QgsMapCanvas& Canvas() { return *Iface().mapCanvas(); }

class Display : public virtual IDisplay, public virtual IDisplayTransformation {
 public:
  static Ref<IDisplay> Make() {
    auto display = std::make_shared<Display>();
    display->self_ = display;
    return Ref<IDisplay>(std::move(display));
  }
  Ref<IDisplayTransformation> DisplayTransformation() override {
    return Ref<IDisplayTransformation>(self_.lock());
  }
  void SetVisibleBounds(const Ref<IEnvelope>& bounds) override {
    Canvas().setExtent(RectangleOf(bounds));
    Canvas().refresh();
  }

 private:
  std::weak_ptr<Display> self_;
};

}  // namespace

// QGIS draws geography and selection in one go, and once for all requests of a turn.
void RefreshCanvas(DrawPhase) { Canvas().refresh(); }

Ref<IEnvelope> CanvasExtent() { return EnvelopeOf(Canvas().extent()); }

Ref<IEnvelope> ExtentOf(const QList<QgsMapLayer*>& layers) {
  const auto crs = Canvas().mapSettings().destinationCrs();
  QgsRectangle all;
  all.setMinimal();
  for (const QgsMapLayer* layer : layers) {
    if (!layer->isSpatial() || !layer->isValid() || layer->extent().isNull()) continue;
    try {
      const QgsCoordinateTransform transform(layer->crs(), crs, QgsProject::instance());
      all.combineExtentWith(transform.transformBoundingBox(layer->extent()));
    } catch (const QgsCsException&) {
      continue;
    }
  }
  return EnvelopeOf(all.xMinimum() > all.xMaximum() ? QgsRectangle(0, 0, 0, 0) : all);
}

Ref<IDisplay> CanvasDisplay() { return Display::Make(); }

}  // namespace brelmon::qgis
