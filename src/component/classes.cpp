// SPDX-License-Identifier: GPL-2.0-or-later
// The table of classes: identifiers from the command table, makers from here.
#include "component/classes.h"

#include "forms/cmdAbout.h"
#include "frame/commandtable.h"
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
static_assert(std::size(kMakers) == 20);

}  // namespace

const std::array<ClassEntry, 21>& Classes() {
  static const auto classes = [] {
    std::array<ClassEntry, 21> table;
    table[0] = {kToolBarClass, kToolBarClassId, Make<toolBarBrelmon>};
    for (std::size_t i = 0; i < std::size(kMakers); ++i) {
      const CommandInfo& command = CommandNamed(kMakers[i].className);
      table[i + 1] = {command.ClassName, command.ClassId, kMakers[i].make};
    }
    return table;
  }();
  return classes;
}

}  // namespace brelmon
