// SPDX-License-Identifier: GPL-2.0-or-later
// What the query dialog is given: the valid layers and tables of the focus map, and their names.
#include "selection/cmdSelByAttBrelmon.h"

#include "frame/documentmodel.h"
#include "platform/collection.h"

namespace brelmon {
namespace {

/// The items on offer. There is room for 5001 names; one more fails with 9, as does none.
class Offer {
 public:
  explicit Offer(Ref<IObject> selected) : selected_(std::move(selected)) {}

  void Add(const Ref<IObject>& item, const Text& name) {
    ++count_;
    items_->Add(item);
    At(names_, count_) = name;
    if (selected_ && Same(item, selected_)) selectedIndex_ = static_cast<std::int16_t>(count_);
  }
  std::vector<Text> CutNames() {
    if (count_ < 0) Raise(failure::kSubscript);
    names_.resize(static_cast<std::size_t>(count_) + 1);
    return std::move(names_);
  }
  const Ref<IVariantArray>& Items() const { return items_; }
  std::int16_t SelectedIndex() const { return selectedIndex_; }

 private:
  Ref<IObject> selected_;
  Ref<IVariantArray> items_ = New<IVariantArray>();
  std::vector<Text> names_ = std::vector<Text>(5001);
  std::int32_t count_ = -1;
  std::int16_t selectedIndex_ = -1;
};

}  // namespace

cmdSelByAttBrelmon::cmdSelByAttBrelmon() : BrelmonCommand(u"cmdSelByAttBrelmon") {}

cmdSelByAttBrelmon::~cmdSelByAttBrelmon() {
  Terminate([&] {
    if (m_pDialog) m_pDialog->Unload();
    m_pDialog.Reset();
  });
}

void cmdSelByAttBrelmon::Created() { m_pDialog = New<brelmon_ModQueryDialog>(); }

void cmdSelByAttBrelmon::OnClick() {
  Guard::Top(u"ICommand_OnClick", [&] {
    const auto map = m_pMxDoc->FocusMap();
    auto selected = m_pMxDoc->SelectedItem();
    if (!selected.Offers<IStandaloneTable>() && !selected.Offers<IFeatureLayer>()) {
      selected.Reset();
    }
    Offer offer(selected);
    ForEachValidItem(map, [&](const Ref<IObject>& item) { offer.Add(item, ItemName(item)); });
    const auto names = offer.CutNames();

    if (!m_pDialog) m_pDialog = New<brelmon_ModQueryDialog>();
    m_pDialog->ArcApplication = m_pApp;
    m_pDialog->theLayerArray = offer.Items();
    m_pDialog->theCurrentSelected = offer.SelectedIndex();
    m_pDialog->theStringLayerNames = names;
    m_pDialog->lbxThemes.Clear();
    for (const Text& name : names) m_pDialog->lbxThemes.AddItem(name);
    if (offer.SelectedIndex() >= 0) m_pDialog->lbxThemes.SetListIndex(offer.SelectedIndex());
    m_pDialog->EnableStatTableButtons();
    m_pDialog->ShowModal();
  });
}

}  // namespace brelmon
