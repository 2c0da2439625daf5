// SPDX-License-Identifier: GPL-2.0-or-later
// One walk for the three of them.
#include "hosts/common/objectlists.h"

namespace brelmon::host {
namespace {

/// The members in order, then unset for ever.
template <class Interface, class Member>
class Walk : public Interface {
 public:
  explicit Walk(std::vector<Ref<Member>> members) : members_(std::move(members)) {}
  void Reset() override { next_ = 0; }
  Ref<Member> Next() override {
    return next_ < members_.size() ? members_[next_++] : Ref<Member>();
  }

 protected:
  std::vector<Ref<Member>> members_;

 private:
  std::size_t next_ = 0;
};

class ObjectSet : public Walk<ISet, IObject> {
 public:
  using Walk::Walk;
  std::int32_t Count() override { return static_cast<std::int32_t>(members_.size()); }
};

class Rectangle : public IEnvelope {
 public:
  void PutCoords(double xMin, double yMin, double xMax, double yMax) override {
    xMin_ = xMin, yMin_ = yMin, xMax_ = xMax, yMax_ = yMax;
  }
  void QueryCoords(double& xMin, double& yMin, double& xMax, double& yMax) override {
    xMin = xMin_, yMin = yMin_, xMax = xMax_, yMax = yMax_;
  }

 private:
  double xMin_ = 0, yMin_ = 0, xMax_ = 0, yMax_ = 0;
};

}  // namespace

Ref<ISet> NewSet(std::vector<Ref<IObject>> members) { return New<ObjectSet>(std::move(members)); }

Ref<IEnumLayer> NewEnumLayer(std::vector<Ref<ILayer>> layers) {
  return New<Walk<IEnumLayer, ILayer>>(std::move(layers));
}

Ref<IEnumElement> NewEnumElement(std::vector<Ref<IElement>> elements) {
  return New<Walk<IEnumElement, IElement>>(std::move(elements));
}

Ref<IEnvelope> NewEnvelope() { return New<Rectangle>(); }

}  // namespace brelmon::host
