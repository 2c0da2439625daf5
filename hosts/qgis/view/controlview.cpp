// SPDX-License-Identifier: GPL-2.0-or-later
// Which view a kind of control has.
#include "hosts/qgis/view/controlview.h"

#include "hosts/common/hostfailure.h"
#include "hosts/qgis/view/views.h"

namespace brelmon::qgis {

std::unique_ptr<ControlView> NewControlView(Control& control, IFormSurface& surface,
                                            QWidget* parent) {
  switch (control.Kind()) {
    case ControlKind::Label:
      return NewLabelView(static_cast<Label&>(control), surface, parent);
    case ControlKind::TextBox:
      return NewTextView(static_cast<TextBox&>(control), surface, parent);
    case ControlKind::ListBox:
      return NewListView(static_cast<ListBox&>(control), surface, parent);
    case ControlKind::ComboBox:
      return NewComboView(static_cast<ComboBox&>(control), surface, parent);
    case ControlKind::CommandButton:
      return NewButtonView(static_cast<CommandButton&>(control), surface, parent);
    case ControlKind::OptionButton:
      return NewOptionView(static_cast<OptionButton&>(control), surface, parent);
    case ControlKind::CheckBox:
      return NewCheckView(static_cast<CheckBox&>(control), surface, parent);
    case ControlKind::Frame:
      return NewFrameView(static_cast<Frame&>(control), parent);
    case ControlKind::PictureBox:
      return NewPictureView(static_cast<PictureBox&>(control), surface, parent);
    case ControlKind::TreeView:
      return NewTreeView(static_cast<TreeView&>(control), surface, parent);
    case ControlKind::RichTextBox:
      return NewRichTextView(static_cast<RichTextBox&>(control), parent);
  }
  host::Fail(failure::kNotSupported);
}

}  // namespace brelmon::qgis
