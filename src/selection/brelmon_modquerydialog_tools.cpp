// SPDX-License-Identifier: GPL-2.0-or-later
// Where the query dialog leads out: the chosen layer's table and statistics, saved queries.
#include "frame/guard.h"
#include "layertools/tablewindows.h"
#include "quickload/QuickLoadFile.h"
#include "quickload/QuickLoadLists.h"
#include "quickload/QuickLoadMessages.h"
#include "quickload/brelmon_quickjumpdialog.h"
#include "selection/brelmon_modquerydialog.h"
#include "util/aml_func_mod.h"
#include "util/documentdirectory.h"

namespace brelmon {

void brelmon_ModQueryDialog::WireSideTools() {
  cmdOpenTable.Click = [this] { cmdOpenTable_Click(); };
  cmdOpenStats.Click = [this] { cmdOpenStats_Click(); };
  cmdLoadQJQuery.Click = [this] { cmdLoadQJQuery_Click(); };
}

void brelmon_ModQueryDialog::cmdOpenTable_Click() {
  Guard::Top(u"cmdOpenTable_Click", [&] { OpenTableOf(ChosenItem(), ArcApplication); });
}

void brelmon_ModQueryDialog::cmdOpenStats_Click() {
  Guard::Top(u"cmdOpenStats_Click", [&] {
    RunDialogStatistics(ArcApplication, ChosenItem(), statDefaults, reportWindow);
  });
}

void brelmon_ModQueryDialog::cmdLoadQJQuery_Click() {
  Guard::Top(u"cmdLoadQJQuery_Click", [&] {
    const Text path = DocumentDirectory(ArcApplication) + Text(QuickLoadFile::kFileName);
    if (!ExistFileDir(path)) return QuickLoadMessages::TellFileMissing();
    const auto lists = QuickLoadLists::Read(path, ArcApplication->Document().As<IMxDocument>());
    const auto dialog = New<brelmon_QuickJumpDialog>();
    lists.GiveTo(*dialog);
    dialog->optQueries.SetValue(true);
    for (OptionButton* other : {&dialog->optExtents, &dialog->optLayers, &dialog->optViews}) {
      other->SetEnabled(false);
    }
    dialog->optQueries_Click();
    dialog->ShowModal();
    if (dialog->booShouldContinue() && dialog->optQueries.Value()) {
      txtQuery.SetText(At(lists.QueryStrings, dialog->lbxList.ListIndex()));
    }
  });
}

}  // namespace brelmon
