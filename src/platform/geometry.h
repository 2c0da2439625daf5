// SPDX-License-Identifier: GPL-2.0-or-later
// Shapes and the drawing surface, as far as tools need them.
#pragma once

#include "platform/object.h"

namespace brelmon {

/// A shape of the host's; tools only pass it on.
class IGeometry : public virtual IObject {};

class IEnvelope : public virtual IGeometry {
 public:
  /// In the units of the view that it is given to.
  virtual void PutCoords(double xMin, double yMin, double xMax, double yMax) = 0;
  /// All zero before anything was put.
  virtual void QueryCoords(double& xMin, double& yMin, double& xMax, double& yMax) = 0;
};

/// A graphic on the map.
class IElement : public virtual IObject {
 public:
  /// Its shape, with the reference system that its numbers are in; never unset.
  virtual Ref<IGeometry> Geometry() = 0;
};

class IEnumElement : public virtual IObject {
 public:
  virtual Ref<IElement> Next() = 0;  // unset at the end
  virtual void Reset() = 0;
};

class IGraphicsContainerSelect : public virtual IObject {
 public:
  virtual std::int32_t ElementSelectionCount() = 0;
  virtual Ref<IEnumElement> SelectedElements() = 0;  // never unset, also without any
};

class IDisplayTransformation : public virtual IObject {
 public:
  /// The whole box can be seen afterwards; the view keeps its proportions.
  virtual void SetVisibleBounds(const Ref<IEnvelope>& bounds) = 0;
};

class IDisplay : public virtual IObject {
 public:
  virtual Ref<IDisplayTransformation> DisplayTransformation() = 0;
};

/// esriViewDrawPhase.
enum class DrawPhase : std::int32_t { Geography = 2, GeoSelection = 4, GeographyAndSelection = 6 };

class IActiveView : public virtual IObject {
 public:
  /// Draws the phase anew; unset data and envelope stand for everything. A view that isn't shown
  /// has nothing to draw.
  virtual void PartialRefresh(DrawPhase phase, const Ref<IObject>& data,
                              const Ref<IEnvelope>& envelope) = 0;
  virtual void Refresh() = 0;
  virtual Ref<IEnvelope> Extent() = 0;      // what can be seen, in the map's units
  virtual Ref<IEnvelope> FullExtent() = 0;  // of all layers, all zero without any
  virtual Ref<IDisplay> ScreenDisplay() = 0;
};

}  // namespace brelmon
