// SPDX-License-Identifier: GPL-2.0-or-later
// The click of QuickLoad and its four jumps.
#include "quickload/cmdQuickLoad.h"

#include <array>

#include "platform/collection.h"
#include "platform/number.h"
#include "platform/services.h"
#include "platform/windows.h"
#include "quickload/QuickLoadFile.h"
#include "quickload/QuickLoadMessages.h"
#include "util/aml_func_mod.h"
#include "util/documentdirectory.h"

namespace brelmon {
namespace {

void Refuse(const Text& reason) {
  MsgBox(reason + Text(kCrLf) + Text(kCrLf) + u"Bailing out...", box::kCritical);
}

}  // namespace

cmdQuickLoad::cmdQuickLoad() : BrelmonCommand(u"cmdQuickLoad") {}

cmdQuickLoad::~cmdQuickLoad() {
  Terminate([&] {
    m_pApp.Reset();
    m_pMxDoc.Reset();
    m_pDialog.Reset();
  });
}

void cmdQuickLoad::Created() { m_pDialog = New<brelmon_QuickJumpDialog>(); }

void cmdQuickLoad::OnClick() {
  Guard::PlainBox([&] {
    const auto pActiveView = m_pMxDoc->ActiveView();
    const Text directory = DocumentDirectory(m_pApp);
    const Text path = directory + Text(QuickLoadFile::kFileName);
    if (!ExistFileDir(path)) return QuickLoadMessages::TellFileMissing();

    const auto lists = QuickLoadLists::Read(path, m_pMxDoc);
    if (!m_pDialog) m_pDialog = New<brelmon_QuickJumpDialog>();
    lists.GiveTo(*m_pDialog);
    m_pDialog->booShouldContinue(false);
    m_pDialog->ShowModal();
    if (!m_pDialog->booShouldContinue()) return;

    const std::int32_t index = m_pDialog->lbxList.ListIndex();
    if (m_pDialog->optViews.Value()) {
      GoToDataFrame(index);
    } else if (m_pDialog->optExtents.Value()) {
      GoToBookmark(At(lists.BookmarkCoordinates, index), pActiveView);
    } else if (m_pDialog->optLayers.Value()) {
      AddLayer(directory + At(lists.LayerPaths, index), At(lists.LayerNames, index), pActiveView);
    } else if (m_pDialog->optQueries.Value()) {
      QuickLoadMessages::ShowReport(At(lists.QueryStrings, index),
                                    u"Query = " + At(lists.QueryNames, index));
    }
  });
}

void cmdQuickLoad::GoToDataFrame(std::int32_t index) {
  const auto pMaps = m_pMxDoc->Maps();
  const auto pMap = pMaps->Item(index);
  auto pContentsView = m_pMxDoc->CurrentContentsView();
  const Text tab = pContentsView->Name();
  if (tab != u"Source" && tab != u"Display") {
    pContentsView = m_pMxDoc->ContentsView(0);
    m_pMxDoc->SetCurrentContentsView(pContentsView);
  }
  for (std::int32_t each = 0; each < pMaps->Count(); ++each) {
    pMaps->Item(each)->SetExpanded(each == index);
  }
  pContentsView->Refresh(pMap);
  m_pMxDoc->UpdateContents();
  if (Same(pMap, m_pMxDoc->FocusMap())) return;
  const auto pView = pMap.As<IActiveView>();
  m_pMxDoc->SetActiveView(pView);
  pView->ScreenDisplay()->DisplayTransformation()->SetVisibleBounds(pView->FullExtent());
  m_pMxDoc->ActiveView()->Refresh();
}

void cmdQuickLoad::GoToBookmark(const std::vector<Text>& coordinates,
                                const Ref<IActiveView>& view) {
  // Through text and back: the extent is the one that the written numbers tell.
  std::array<Text, 4> texts;
  for (std::size_t i = 0; i < texts.size(); ++i) texts[i] = GeneralText(ToDouble(coordinates[i]));
  const auto pEnvelope = HostObjects().NewEnvelope();
  pEnvelope->PutCoords(ToDouble(texts[0]), ToDouble(texts[1]), ToDouble(texts[2]),
                       ToDouble(texts[3]));
  view->ScreenDisplay()->DisplayTransformation()->SetVisibleBounds(pEnvelope);
  view->PartialRefresh(DrawPhase::GeographyAndSelection, nullptr, nullptr);
}

void cmdQuickLoad::AddLayer(const Text& path, const Text& name, const Ref<IActiveView>& view) {
  if (!ExistFileDir(path)) {
    return Refuse(u"No layer file was found at the following location: " + Text(kCrLf) +
                  Text(kCrLf) + u" --> " + path);
  }
  const auto pGxLayer = HostObjects().NewGxLayer();
  pGxLayer.As<IGxFile>()->SetPath(path);
  const auto pLayer = pGxLayer->Layer();
  if (!pLayer->Valid()) {
    return Refuse(u"The layer named '" + name +
                  u"' is invalid."
                  u" Possibly the data referenced by the layer file is missing, or the file itself "
                  u"is corrupt.");
  }
  m_pMxDoc->FocusMap()->AddLayer(pLayer);
  view->PartialRefresh(DrawPhase::Geography, pLayer, nullptr);
}

}  // namespace brelmon
