// SPDX-License-Identifier: GPL-2.0-or-later
// The table of classes: identifiers from the command table, makers from here.
#include "component/classes.h"

#include <algorithm>
#include <array>

#include "forms/cmdAbout.h"
#include "frame/commandrows.h"
#include "frame/toolBarBrelmon.h"
#include "layertools/OpenTable.h"
#include "layertools/cmdDeleteSelLayers.h"
#include "layertools/cmdHistogramStats.h"
#include "layertools/cmdSelByAttributes.h"
#include "layertools/cmdSelByGraphic.h"
#include "layertools/cmdSelByLocation.h"
#include "layertools/cmdSelectAll.h"
#include "layertools/cmdSelectNone.h"
#include "layertools/cmdSelectSwitch.h"
#include "layertools/cmdSummarize.h"
#include "media/cmdMediaViewer.h"
#include "quickload/cmdQLAddLayer.h"
#include "quickload/cmdQLAddQuery.h"
#include "quickload/cmdQLAddSpatial.h"
#include "quickload/cmdQLDelete.h"
#include "quickload/cmdQuickLoad.h"
#include "selection/cmdSelByAttBrelmon.h"
#include "statistics/cmdStats.h"
#include "summarize/cmdSumBrelmon.h"

namespace brelmon {
namespace {

template <class T>
Ref<IObject> Make() {
  return New<T>();
}

struct Maker {
  TextView className;
  Ref<IObject> (*make)();
};

constexpr Maker kMakers[] = {
    {u"OpenTable", Make<OpenTable>},
    {u"cmdMediaViewer", Make<cmdMediaViewer>},
    {u"cmdStats", Make<cmdStats>},
    {u"cmdHistogramStats", Make<cmdHistogramStats>},
    {u"cmdSelectNone", Make<cmdSelectNone>},
    {u"cmdSelectSwitch", Make<cmdSelectSwitch>},
    {u"cmdSelectAll", Make<cmdSelectAll>},
    {u"cmdSelByAttributes", Make<cmdSelByAttributes>},
    {u"cmdSelByLocation", Make<cmdSelByLocation>},
    {u"cmdSumBrelmon", Make<cmdSumBrelmon>},
    {u"cmdSelByAttBrelmon", Make<cmdSelByAttBrelmon>},
    {u"cmdQuickLoad", Make<cmdQuickLoad>},
    {u"cmdQLAddSpatial", Make<cmdQLAddSpatial>},
    {u"cmdQLAddQuery", Make<cmdQLAddQuery>},
    {u"cmdQLAddLayer", Make<cmdQLAddLayer>},
    {u"cmdQLDelete", Make<cmdQLDelete>},
    {u"cmdDeleteSelLayers", Make<cmdDeleteSelLayers>},
    {u"cmdSummarize", Make<cmdSummarize>},
    {u"cmdSelByGraphic", Make<cmdSelByGraphic>},
    {u"cmdAbout", Make<cmdAbout>},
};
constexpr bool MakersFollowTable() {
  return std::ranges::equal(kMakers, rows::kCommands, {}, &Maker::className,
                            &CommandInfo::ClassName);
}
static_assert(MakersFollowTable(), "each row of the command table has its maker, in its order");

constexpr auto kClasses = [] {
  std::array<ClassEntry, 1 + std::size(kMakers)> classes;
  classes[0] = {kToolBarClass, rows::kToolBarClassId, Make<toolBarBrelmon>};
  for (std::size_t i = 0; i < std::size(kMakers); ++i) {
    classes[1 + i] = {kMakers[i].className, rows::kCommands[i].ClassId, kMakers[i].make};
  }
  return classes;
}();

}  // namespace

std::span<const ClassEntry> Classes() { return kClasses; }

}  // namespace brelmon
