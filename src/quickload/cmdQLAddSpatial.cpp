// SPDX-License-Identifier: GPL-2.0-or-later
// The click of "QL Edit - Add Bookmarks".
#include "quickload/cmdQLAddSpatial.h"

#include "platform/number.h"
#include "quickload/QuickLoadFile.h"
#include "quickload/QuickLoadMessages.h"
#include "quickload/frm_InputSpatialBookmark.h"
#include "util/aml_func_mod.h"
#include "util/documentdirectory.h"

namespace brelmon {

cmdQLAddSpatial::cmdQLAddSpatial() : BrelmonCommand(u"cmdQLAddSpatial") {}

cmdQLAddSpatial::~cmdQLAddSpatial() {
  Terminate([&] {
    m_pApp.Reset();
    m_pMxDoc.Reset();
  });
}

void cmdQLAddSpatial::OnClick() {
  Guard::PlainBox([&] {
    const Text path = DocumentDirectory(m_pApp) + Text(QuickLoadFile::kFileName);
    if (!ExistFileDir(path) && !QuickLoadMessages::MayCreate(path)) return;

    // Before the dialog opens: the extent that the user saw on clicking.
    double xMin = 0, yMin = 0, xMax = 0, yMax = 0;
    m_pMxDoc->ActiveView()->Extent()->QueryCoords(xMin, yMin, xMax, yMax);

    auto dialog = New<frm_InputSpatialBookmark>();
    dialog->ShowModal();
    const Text name = dialog->theModalResult();
    dialog.Reset();
    if (name == u"Cancel") return;

    QuickLoadFile::Append(
        path, {{QuickLoadRecord::Kind::Bookmark,
                {name, GeneralText(xMin), GeneralText(yMin), GeneralText(xMax), GeneralText(yMax)},
                0}});
    QuickLoadMessages::TellSaved(name);
  });
}

}  // namespace brelmon
