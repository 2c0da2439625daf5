// SPDX-License-Identifier: GPL-2.0-or-later
// The click of "QL Edit - Add Query".
#include "quickload/cmdQLAddQuery.h"

#include "quickload/QuickLoadFile.h"
#include "quickload/QuickLoadMessages.h"
#include "quickload/frm_InputQuery.h"
#include "util/aml_func_mod.h"
#include "util/documentdirectory.h"

namespace brelmon {

cmdQLAddQuery::cmdQLAddQuery() : BrelmonCommand(u"cmdQLAddQuery") {}

cmdQLAddQuery::~cmdQLAddQuery() {
  Terminate([&] {
    m_pApp.Reset();
    m_pMxDoc.Reset();
  });
}

void cmdQLAddQuery::OnClick() {
  Guard::PlainBox([&] {
    const Text path = DocumentDirectory(m_pApp) + Text(QuickLoadFile::kFileName);
    if (!ExistFileDir(path) && !QuickLoadMessages::MayCreate(path)) return;

    auto dialog = New<frm_InputQuery>();
    dialog->ShowModal();
    const Text name = dialog->theName();
    if (name == u"Cancel") return;
    const Text query = dialog->theString();
    dialog.Reset();

    QuickLoadFile::Append(path, {{QuickLoadRecord::Kind::Query, {name, query}, 0}});
    QuickLoadMessages::TellSaved(name);
  });
}

}  // namespace brelmon
