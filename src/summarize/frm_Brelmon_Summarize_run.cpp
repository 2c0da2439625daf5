// SPDX-License-Identifier: GPL-2.0-or-later
// Where the summary table goes, and the run that makes it.
#include "frame/guard.h"
#include "layertools/tablewindows.h"
#include "platform/services.h"
#include "platform/windows.h"
#include "selection/mapitem.h"
#include "summarize/frm_Brelmon_Summarize.h"
#include "util/aml_func_mod.h"

namespace brelmon {
namespace {

constexpr TextView kDefaultName = u"summary.dbf";
constexpr std::int32_t kLastSavedTo = 3;

Text WithBackslash(Text folder) {
  if (folder.empty() || folder.back() != u'\\') folder += u'\\';
  return folder;
}

/// The first folder that can hold tables; failing all, where the host saved last, untried.
Text DefaultFolder(const Ref<IWorkspaceFactory>& factory) {
  const Text user = GetTheUserName();
  const auto usable = [&](const Text& folder) { return factory->IsWorkspace(folder); };
  for (const Text& folder : {u"c:\\Users\\" + user + u"\\Documents\\",
                             u"c:\\Documents and Settings\\" + user + u"\\My Documents\\",
                             u"c:\\Documents and Settings\\" + user + u"\\Documents\\",
                             Text(u"c:\\Documents and Settings\\My Documents\\"),
                             Text(u"c:\\Documents and Settings\\Documents\\")}) {
    if (usable(folder)) return folder;
  }
  if (const Text folder = GetFullFileString(TempPathLocation()); usable(folder)) return folder;
  if (const Text folder = u"c:\\temp\\"; usable(folder)) return folder;
  return ReturnArcGISGeneralDir(kLastSavedTo);
}

}  // namespace

Text frm_Brelmon_Summarize::TypedOutput() { return FileSystem().FromTyped(txtOutput.Text()); }

void frm_Brelmon_Summarize::ProposeOutput() {
  const auto factory = HostObjects().NewShapefileWorkspaceFactory();
  const Text folder = WithBackslash(DefaultFolder(factory));
  const bool usable = factory->IsWorkspace(folder) && folder != u"\\";
  txtOutput.SetText(usable ? MakeUniqueFilename(folder + Text(kDefaultName)) : Text());
}

void frm_Brelmon_Summarize::cmdGetFile_Click() {
  Guard::Top(u"cmdGetFile_Click", [&] {
    Text start, proposal;
    if (const Text output = TypedOutput(); !output.empty()) {
      proposal = MakeUniqueFilename(output);
      start = WithBackslash(ReturnDir(proposal));
    } else {
      start = WithBackslash(ReturnArcGISGeneralDir(kLastSavedTo));
      proposal = MakeUniqueFilename(start + Text(kDefaultName));
    }
    const auto dialog = HostObjects().NewGxDialog();
    dialog->SetAllowMultiSelect(false);
    dialog->SetStartingLocation(start);
    dialog->SetTitle(u"Please specify where to save your Summary table:");
    dialog->SetObjectFilter(GxFilter::Tables);
    dialog->SetName(ReturnFilename(proposal));
    if (!dialog->DoModalSave(ArcApp->hWnd())) return;
    Text path = dialog->FinalLocation() + u"\\" + dialog->Name();
    if (ExistFileDir(path)) {
      path = MakeUniqueFilename(path);
      MsgBox(u"Unable to overwrite the file '" + dialog->Name() +
             u"'.  The new file will be saved to " + path + u"...");
    }
    txtOutput.SetText(path);
  });
}

Ref<IDatasetName> frm_Brelmon_Summarize::OutputName(const Text& path) {
  const Text folder = ReturnDir(path);
  const Text fileName = ReturnFilename(path);
  if (ExistFileDir(path)) {
    const Text lineEnd(kCrLf);
    MsgBox(u"Unable to save output to " + path + u"." + lineEnd + u"Table already exists!" +
           lineEnd + lineEnd + u"Bailing out...");
    return {};
  }
  const auto workspace = HostObjects().NewShapefileWorkspaceFactory()->OpenFromFile(folder, 0);
  if (!workspace->Exists()) {
    MsgBox(u"Unable to save output to " + folder + u".  Bailing out...");
    return {};
  }
  const auto name = New<IDatasetName>();
  name->Name = fileName;
  name->WorkspaceName = workspace.As<IDataset>()->FullName();
  return name;
}

void frm_Brelmon_Summarize::cmdOK_Click() {
  Guard::Top(u"cmdOK_Click", [&] {
    const Text field = Field_Array->Field(ChosenField())->Name();
    const Text summary = SummaryString(field, TickedTerms());
    const auto document = ArcApp->Document().As<IMxDocument>();
    const auto map = document->FocusMap();
    const auto input = TableOf(SelectedLayer);
    const auto output = OutputName(TypedOutput());
    if (!output) return;
    const bool useSelected = chkSumSelected.Value() == 1;
    const auto made =
        HostObjects().NewBasicGeoprocessor()->Dissolve(input, useSelected, field, summary, output);
    const auto table = HostObjects().NewStandaloneTable();
    table->SetTable(made);
    map.As<IStandaloneTableCollection>()->AddStandaloneTable(table);
    document->UpdateContents();
    Hide();
    OpenNewTableWindow(table, ArcApp);
  });
}

}  // namespace brelmon
