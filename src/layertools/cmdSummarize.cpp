// SPDX-License-Identifier: GPL-2.0-or-later
// The host's own summarize dialog, opened on the field a user is likeliest to group by.
#include "layertools/cmdSummarize.h"

#include "frame/documentmodel.h"
#include "platform/services.h"
#include "platform/windows.h"

namespace brelmon {
namespace {

/// False after the message for an item whose data can't be reached. A table is called a layer
/// in its tail too.
bool CheckValid(const Ref<IObject>& item) {
  if (IsValidItem(item)) return true;
  ShowInvalidData(ItemName(item), item.Offers<IFeatureLayer>()
                                      ? u"layer.  Unable to summarize this layer..."
                                      : u"table.  Unable to summarize this layer...");
  return false;
}

/// The first text, else the first number, else whatever stands first.
Ref<IField> FieldToGroupBy(const Ref<ITableFields>& fields) {
  const auto first = [&](auto matches) {
    const std::int32_t count = fields->FieldCount();
    for (std::int32_t i = 0; i < count; ++i) {
      const auto field = fields->Field(i);
      if (matches(field->Type())) return field;
    }
    return Ref<IField>();
  };
  auto field = first([](FieldType type) { return type == FieldType::String; });
  if (!field) field = first([](FieldType type) { return type < FieldType::String; });
  return field ? field : fields->Field(0);
}

}  // namespace

cmdSummarize::cmdSummarize() : BrelmonCommand(u"cmdSummarize") {}

cmdSummarize::~cmdSummarize() {
  Terminate([&] {
    m_pApp.Reset();
    m_pMxDoc.Reset();
  });
}

void cmdSummarize::OnClick() {
  Guard::Top(u"ICommand_OnClick", [&] {
    const auto item = m_pMxDoc->SelectedItem();
    if (!item.Offers<IFeatureLayer>() && !item.Offers<IStandaloneTable>()) return;
    if (!CheckValid(item)) return;
    const auto field = FieldToGroupBy(item.As<ITableFields>());
    const auto dialog = HostObjects().NewSummarizeDialog();
    dialog->SetApplication(m_pApp);
    dialog->SetTable(item.As<ITable>());
    dialog->SetField(field);
    dialog->SetFlag(true);
    dialog->DoModal(m_pApp->hWnd());
  });
}

}  // namespace brelmon
