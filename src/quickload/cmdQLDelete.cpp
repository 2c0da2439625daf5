// SPDX-License-Identifier: GPL-2.0-or-later
// The click of "QL Edit - Delete Reference": the only one that writes the whole file anew.
#include "quickload/cmdQLDelete.h"

#include "media/BrowseTextFile.h"
#include "platform/services.h"
#include "quickload/QuickLoadFile.h"
#include "quickload/QuickLoadMessages.h"
#include "quickload/frm_QLDelete.h"
#include "util/aml_func_mod.h"
#include "util/documentdirectory.h"

namespace brelmon {
namespace {

Text RowOf(const QuickLoadRecord& record) {
  return record.Fields.front() + Text(KindOf(record).Mark);
}

/// The file beside the document or the one that the user points to; nothing, and told, if neither.
std::optional<Text> FindFile(const Ref<IApplication>& application) {
  const Text path = DocumentDirectory(application) + Text(QuickLoadFile::kFileName);
  if (ExistFileDir(path)) return path;
  auto chosen =
      BrowseTextFile(application, path, u"Please identify the Brelmon 'QuickLoad.txt' file:");
  if (!chosen) {
    MsgBox(u"Unable to find Brelmon 'QuickLoad.txt' file.  Bailing out...", box::kInformation,
           u"QuickLoad Editor Cancelled:");
  }
  return chosen;
}

/// Takes the selected records out; gives the report of what went.
Text TakeOut(std::vector<QuickLoadRecord>& records, ListBox& references) {
  Text report = u"The following references were deleted from the QuickLoad.txt file:" +
                Text(kCrLf) + Text(46, u'-') + Text(kCrLf);
  std::vector<QuickLoadRecord> kept;
  std::int32_t row = 0;
  for (auto& record : records) {
    if (references.Selected(row++)) {
      report += u"  --> " + RowOf(record) + Text(kCrLf);
    } else {
      kept.push_back(std::move(record));
    }
  }
  records = std::move(kept);
  return report;
}

}  // namespace

cmdQLDelete::cmdQLDelete() : BrelmonCommand(u"cmdQLDelete") {}

cmdQLDelete::~cmdQLDelete() {
  Terminate([&] {
    m_pApp.Reset();
    m_pMxDoc.Reset();
  });
}

void cmdQLDelete::OnClick() {
  Guard::PlainBox([&] {
    const auto path = FindFile(m_pApp);
    if (!path) return;
    // Open until the dialog has closed: nobody of this process writes to it meanwhile.
    auto records = QuickLoadFile::OpenAndRead(*path);
    auto dialog = New<frm_QLDelete>();
    for (const auto& record : records) {
      dialog->lbxReferences.AddItem(RowOf(record), static_cast<std::int32_t>(record.Is));
    }
    dialog->ShowModal();
    if (!dialog->ShouldContinue()) return QuickLoadFile::Close();

    const Text report = TakeOut(records, dialog->lbxReferences);
    dialog.Reset();
    QuickLoadFile::Close();
    QuickLoadFile::Rewrite(*path, records);
    QuickLoadMessages::ShowReport(report, u"QuickLoad Edit Report:");
  });
}

}  // namespace brelmon
