// SPDX-License-Identifier: GPL-2.0-or-later
// What the query does: to the selection, to the filter, and to the buttons around it.
#include "frame/guard.h"
#include "platform/services.h"
#include "selection/brelmon_modquerydialog.h"
#include "selection/mapitem.h"
#include "selection/queryoperation.h"

namespace brelmon {
namespace {

Ref<IQueryFilter> FilterOf(const Text& query) {
  const auto filter = New<IQueryFilter>();
  filter->WhereClause = query;
  return filter;
}

/// Fails where the source refuses the query; what it finds is of no interest.
void TryQuery(const Ref<ITable>& table, const Ref<IQueryFilter>& filter) {
  table->Search(filter, false);
  table->RowCount(filter);
}

}  // namespace

void brelmon_ModQueryDialog::WireEngine() {
  const auto guarded = [this](CommandButton& button, TextView procedure, SetOperation operation) {
    button.Click = [this, procedure, operation] {
      Guard::Top(procedure, [&] { ModQueryDoSelection(operation); });
    };
  };
  guarded(cmdNewSet, u"cmdNewSet_Click", SetOperation::New);
  guarded(cmdAddToSet, u"cmdAddToSet_Click", SetOperation::Add);
  guarded(cmdSubtractFromSet, u"cmdSubtractFromSet_Click", SetOperation::Subtract);
  guarded(cmdSelFromSet, u"cmdSelFromSet_Click", SetOperation::SelectFrom);
  guarded(cmdClear, u"cmdClear_Click", SetOperation::Clear);
  optFiltered.Click = [this] { optFiltered_Click(); };
  optSelected.Click = [this] { Guard::Top(u"optSelected_Click", [&] { optFiltered_Click(); }); };
  cmdVerify.Click = [this] { cmdVerify_Click(); };
  cmdSwitchSel.Click = [this] { cmdSwitchSel_Click(); };
}

void brelmon_ModQueryDialog::ModQueryDoSelection(SetOperation operation) {
  const auto refused = [] {
    MsgBox(u"Query didn't work!  Please check to make sure the query is formatted correctly...",
           box::kCritical, u"Syntax Error:");
  };
  Guard::TopUnless(failure::kRefused, refused, u"ModQueryDoSelection", [&] {
    const auto view = ArcApplication->Document().As<IMxDocument>()->ActiveView();
    const auto item = ChosenItem();
    const bool onSelection = optSelected.Value();
    const Text query = txtQuery.Text();
    auto filter = FilterOf(query);
    const auto table = TableOf(item);
    // A table is given no selection to work on: in Select mode the set buttons fail on it.
    Ref<IFeatureSelection> selection;
    if (item.Offers<IFeatureLayer>()) selection = item.As<IFeatureSelection>();
    const auto definition = item.As<ITableDefinition>();
    const bool clearing = operation == SetOperation::Clear;
    if (!clearing) TryQuery(table, filter);

    const auto composed = ComposeOperation(operation, query, definition->DefinitionExpression());
    if (clearing) filter.Reset();
    view->PartialRefresh(DrawPhase::GeoSelection, {}, {});
    if (onSelection) {
      if (clearing) {
        selection->Clear();
      } else {
        selection->SelectFeatures(filter, composed.Method, false);
      }
      selection->SelectionChanged();
    } else {
      definition->SetDefinitionExpression(composed.Definition);
    }
    ShowDefinition(definition->DefinitionExpression());
    view->PartialRefresh(DrawPhase::GeographyAndSelection, item, {});
    DisplayNumSelected();
  });
}

// Serves both options.
void brelmon_ModQueryDialog::optFiltered_Click() {
  Guard::Top(u"optFiltered_Click", [&] {
    Text definition;
    std::int32_t selected = 0;
    if (lbxThemes.ListIndex() >= 0) {
      const auto item = ChosenItem();
      definition = item.As<ITableDefinition>()->DefinitionExpression();
      selected = SelectedCount(item);
    }
    cmdClear.SetCaption(optFiltered.Value() ? u"Clear Filter" : u"Clear Selected");
    EnableNarrowing(definition, selected);
    DisplayNumSelected();
  });
}

void brelmon_ModQueryDialog::cmdVerify_Click() {
  const auto refused = [] {
    MsgBox(u"Query didn't work!  Please check the query for syntax errors...", box::kOk,
           u"Syntax Error:");
  };
  Guard::TopUnless(failure::kRefused, refused, u"cmdVerify_Click", [&] {
    TryQuery(TableOf(ChosenItem()), FilterOf(txtQuery.Text()));
    MsgBox(u"Query appears to be formatted correctly...", box::kOk, Text(kVerifiedTitle));
  });
}

void brelmon_ModQueryDialog::cmdSwitchSel_Click() {
  Guard::Top(u"cmdSwitchSel_Click", [&] {
    SwitchSelection(ArcApplication, ChosenItem());
    DisplayNumSelected();
  });
}

}  // namespace brelmon
