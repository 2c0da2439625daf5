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
    Text path = DocumentDirectory(m_pApp) + Text(QuickLoadFile::kFileName);
    if (!ExistFileDir(path)) {
      const auto chosen =
          BrowseTextFile(m_pApp, path, u"Please identify the Brelmon 'QuickLoad.txt' file:");
      if (!chosen) {
        MsgBox(u"Unable to find Brelmon 'QuickLoad.txt' file.  Bailing out...", box::kInformation,
               u"QuickLoad Editor Cancelled:");
        return;
      }
      path = *chosen;
    }
    // Open until the dialog has closed: nobody of this process writes to it meanwhile.
    auto records = QuickLoadFile::OpenAndRead(path);
    auto dialog = New<frm_QLDelete>();
    for (const auto& record : records) dialog->lbxReferences.AddItem(RowOf(record));
    dialog->ShowModal();
    if (!dialog->ShouldContinue()) return QuickLoadFile::Close();

    Text report = u"The following references were deleted from the QuickLoad.txt file:" +
                  Text(kCrLf) + Text(46, u'-') + Text(kCrLf);
    std::vector<QuickLoadRecord> kept;
    std::int32_t row = 0;
    for (auto& record : records) {
      if (dialog->lbxReferences.Selected(row++)) {
        report += u"  --> " + RowOf(record) + Text(kCrLf);
      } else {
        kept.push_back(std::move(record));
      }
    }
    dialog.Reset();
    QuickLoadFile::Close();
    QuickLoadFile::Rewrite(path, kept);
    QuickLoadMessages::ShowReport(report, u"QuickLoad Edit Report:");
  });
}

}  // namespace brelmon
