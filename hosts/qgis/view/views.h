// SPDX-License-Identifier: GPL-2.0-or-later
// The views of the single kinds of control.
#pragma once

#include "hosts/qgis/view/controlview.h"

namespace brelmon::qgis {

std::unique_ptr<ControlView> NewLabelView(Label& label, IFormSurface& surface, QWidget* parent);
std::unique_ptr<ControlView> NewPictureView(PictureBox& picture, IFormSurface& surface,
                                            QWidget* parent);
std::unique_ptr<ControlView> NewFrameView(Frame& frame, QWidget* parent);
std::unique_ptr<ControlView> NewButtonView(CommandButton& button, IFormSurface& surface,
                                           QWidget* parent);
std::unique_ptr<ControlView> NewOptionView(OptionButton& option, IFormSurface& surface,
                                           QWidget* parent);
std::unique_ptr<ControlView> NewCheckView(CheckBox& check, IFormSurface& surface, QWidget* parent);
/// One line or several, as the box is at this moment.
std::unique_ptr<ControlView> NewTextView(TextBox& box, IFormSurface& surface, QWidget* parent);
std::unique_ptr<ControlView> NewListView(ListBox& list, IFormSurface& surface, QWidget* parent);
std::unique_ptr<ControlView> NewComboView(ComboBox& combo, IFormSurface& surface, QWidget* parent);
std::unique_ptr<ControlView> NewTreeView(TreeView& tree, IFormSurface& surface, QWidget* parent);
std::unique_ptr<ControlView> NewRichTextView(RichTextBox& box, QWidget* parent);

}  // namespace brelmon::qgis
