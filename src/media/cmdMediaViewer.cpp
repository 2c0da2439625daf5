// SPDX-License-Identifier: GPL-2.0-or-later
// The click of "Media Viewer Tool".
#include "media/cmdMediaViewer.h"

#include "media/BrowseTextFile.h"
#include "media/MediaList.h"
#include "media/brelmon_mediadialog.h"
#include "platform/services.h"
#include "util/aml_func_mod.h"
#include "util/documentdirectory.h"

namespace brelmon {

cmdMediaViewer::cmdMediaViewer() : BrelmonCommand(u"cmdMediaViewer") {}

cmdMediaViewer::~cmdMediaViewer() {
  Terminate([] {});
}

void cmdMediaViewer::OnClick() {
  Guard::Top(u"ICommand_OnClick", [&] {
    const auto dialog = New<brelmon_MediaDialog>();
    dialog->ArcApplication(m_pApp);
    const Text directory = DocumentDirectory(m_pApp);
    Text path = directory + Text(kMediaListName);
    if (!ExistFileDir(path)) {
      const auto chosen =
          BrowseTextFile(m_pApp, path, u"Please identify the Brelmon 'media_list.txt' file:");
      if (!chosen) {
        MsgBox(u"Unable to find Brelmon 'Media_list.txt' file.  Bailing out...", box::kInformation,
               u"Media Viewer Cancelled:");
        return;
      }
      path = *chosen;
    }
    Collection<Text> filenames;
    filenames.Add(path, u"Filename");
    filenames.Add(directory, u"prjFilename");
    dialog->MediaFilename(filenames);
    dialog->ShowModal();
  });
}

}  // namespace brelmon
