// SPDX-License-Identifier: GPL-2.0-or-later
// The Summarize dialog's fields and their tree of statistics, its count and its tools.
#include "frame/guard.h"
#include "layertools/tablewindows.h"
#include "platform/number.h"
#include "platform/services.h"
#include "selection/mapitem.h"
#include "summarize/frm_Brelmon_Summarize.h"
#include "util/aml_func_mod.h"

namespace brelmon {
std::int32_t frm_Brelmon_Summarize::ChosenField() {
  return At(fieldIndices, cbxFieldName.ListIndex());
}

void frm_Brelmon_Summarize::cbxLayer_Click() {
  Guard::Top(u"cbxLayer_Click", [&] {
    cbxFieldName.Clear();
    const std::int32_t index = std::max(cbxLayer.ListIndex(), 0);
    SelectedLayer = theTableLayers.Item(GeneralText(index));
    Field_Array = SelectedLayer.As<ITableFields>();
    const std::int32_t count = Field_Array->FieldCount();
    fieldIndices.assign(static_cast<std::size_t>(count), 0);
    std::int32_t row = 0;
    for (std::int32_t i = 0; i < count; ++i) {
      const auto info = Field_Array->FieldInfo(i);
      if (Field_Array->Field(i)->Type() > FieldType::Date || !info->Visible()) continue;
      cbxFieldName.AddItem(info->Alias(), i);
      At(fieldIndices, row++) = i;
    }
    cbxFieldName.SetListIndex(0);
    DisplayNumSelected();
    Fill_TreeView();
    CheckEnable();
  });
}

// The ticks made so far go with the nodes.
void frm_Brelmon_Summarize::cbxFieldName_Click() {
  Guard::Top(u"cbxFieldName_Click", [&] {
    Fill_TreeView();
    CheckEnable();
  });
}

void frm_Brelmon_Summarize::Fill_TreeView() {
  Guard::Inner(u"Fill_TreeView", [&] {
    const std::int32_t chosen = ChosenField();
    treeFields.ClearNodes();
    Screen().SetMousePointer(Pointer::Hourglass);
    const auto bar = ArcApp->StatusBar();
    const std::int32_t count = Field_Array->FieldCount();
    bar->ShowProgressBar(u"Examining fields in " + cbxLayer.Text() + u"...", 1, count, 1, true);
    for (std::int32_t i = 0; i < count; ++i) {
      const auto info = Field_Array->FieldInfo(i);
      if (i != chosen && info->Visible()) {
        AddFieldNode(i, Field_Array->Field(i)->Type(), info->Alias());
      }
      bar->StepProgressBar();
    }
    bar->HideProgressBar();
    Screen().SetMousePointer(Pointer::Default);
  });
}

void frm_Brelmon_Summarize::AddFieldNode(std::int32_t position, FieldType type, const Text& alias) {
  if (type > FieldType::Date) return;
  const bool numeric = type < FieldType::String;
  const Text key = u"key_" + GeneralText(position);
  const TreeImage image = numeric ? kNumber : type == FieldType::String ? kString : kDate;
  Node& field = treeFields.AddNode({}, key, alias, image);
  field.Tag = u"Field";
  field.Data = position;
  std::int32_t index = 0;
  for (const StatisticWords& words : StatisticsOf(numeric)) {
    Node& node =
        treeFields.AddNode(key, key + u"_" + GeneralText(index++), Text(words.Caption), kClear);
    node.Tag = u"Stat";
    node.Data = static_cast<std::int32_t>(words.Is);
  }
}

// The tick is the picture; nothing else remembers it.
void frm_Brelmon_Summarize::treeFields_NodeClick(Node& node) {
  Guard::Top(u"treeFields_NodeClick", [&] {
    if (node.Tag == u"Stat") {
      const TreeImage image = node.Image() == kClear ? kTicked : kClear;
      node.SetImage(image);
      node.SetSelectedImage(image);
    }
    CheckEnable();
  });
}

std::vector<SummaryTerm> frm_Brelmon_Summarize::TickedTerms() {
  std::vector<SummaryTerm> terms;
  for (std::int32_t i = 1; i <= treeFields.NodeCount(); ++i) {
    const Node& node = treeFields.NodeAt(i);
    if (node.Image() != kTicked) continue;
    terms.push_back(
        {static_cast<Statistic>(node.Data), Field_Array->Field(node.Parent()->Data)->Name()});
  }
  return terms;
}

void frm_Brelmon_Summarize::txtOutput_Change() {
  Guard::Top(u"txtOutput_Change", [&] { CheckEnable(); });
}

void frm_Brelmon_Summarize::CheckEnable() {
  Guard::Top(u"CheckEnable", [&] { cmdOK.SetEnabled(!txtOutput.Text().empty()); });
}

void frm_Brelmon_Summarize::DisplayNumSelected() {
  Guard::Inner(u"DisplayNumSelected", [&] {
    const std::int32_t selected = SelectedCount(SelectedLayer);
    const std::int32_t rows = TableOf(SelectedLayer)->RowCount({});
    chkSumSelected.SetCaption(u"Summarize on Selected Records Only (" + InsertCommas(selected) +
                              u" of " + InsertCommas(rows) + u" selected)");
    chkSumSelected.SetValue(selected == 0 ? 2 : 1);
    chkSumSelected.SetEnabled(selected != 0);
  });
}

void frm_Brelmon_Summarize::cmdSwitchSel_Click() {
  Guard::Top(u"cmdSwitchSel_Click", [&] {
    SwitchSelection(ArcApp, SelectedLayer);
    DisplayNumSelected();
  });
}

void frm_Brelmon_Summarize::cmdOpenTable_Click() {
  Guard::Top(u"cmdOpenTable_Click", [&] { OpenTableOf(SelectedLayer, ArcApp); });
}

void frm_Brelmon_Summarize::cmdOpenStats_Click() {
  Guard::Top(u"cmdOpenStats_Click",
             [&] { RunDialogStatistics(ArcApp, SelectedLayer, statDefaults, reportWindow); });
}

void frm_Brelmon_Summarize::cmdHelp_Click() {
  Guard::Top(u"cmdHelp_Click", [&] {
    if (!m_pHelp) m_pHelp = New<frmSumHelp>();
    m_pHelp->Frame()->SetVisible(true);
  });
}

}  // namespace brelmon
