// SPDX-License-Identifier: GPL-2.0-or-later
// One piece for each kind of control: what the page draws of it, what a user does to it.
#include "toolkit/controls.h"
#include "hosts/web/formviews.h"

namespace brelmon::web {
namespace {

void PutPicture(Json& json, const Picture& picture) {
  if (!picture) return;
  const bool cursor = picture->Bytes.substr(0, 2) != "BM";
  json.Put("picture", std::string(cursor ? "data:image/x-icon;base64," : "data:image/bmp;base64,") +
                          Base64(picture->Bytes));
  json.Put("description", picture->Description);
}

void PutFont(Json& json, const Font& font) {
  if (font.Bold) json.Put("bold", true);
  if (font.Underline) json.Put("underline", true);
  if (font.Size > 0) json.Put("points", font.Size);
}

template <class List>
void PutRows(Json& json, List& list) {
  json.Key("rows").BeginArray();
  for (std::int32_t row = 0; row < list.ListCount(); ++row) json.Add(list.List(row));
  json.EndArray().Put("index", list.ListIndex());
}

void Describe(TextBox& box, Json& json) {
  json.Put("text", box.Text())
      .Put("lines", box.MultiLine())
      .Put("locked", box.Locked())
      .Put("start", box.SelStart())
      .Put("length", box.SelLength());
}

void Describe(ListBox& list, Json& json) {
  PutRows(json, list);
  const bool extended = list.MultiSelect() == ListBox::Select::Extended;
  json.Put("extended", extended);
  if (!extended) return;
  json.Key("selected").BeginArray();
  for (std::int32_t row = 0; row < list.ListCount(); ++row) {
    if (list.Selected(row)) json.Add(row);
  }
  json.EndArray();
}

void Describe(ComboBox& combo, Json& json) {
  PutRows(json, combo);
  json.Put("text", combo.Text()).Put("listOnly", combo.ListOnly());
}

void Describe(CommandButton& button, Json& json) {
  PutPicture(json, button.Picture());
  json.Put("default", button.Default()).Put("cancel", button.Cancel());
}

void DescribeNodes(TreeView& tree, const std::vector<Node*>& nodes,
                   const std::map<const Node*, std::int32_t>& places, Json& json) {
  json.BeginArray();
  for (Node* node : nodes) {
    const bool selected = tree.SelectedNode() == node;
    json.Begin()
        .Put("place", places.at(node))
        .Put("text", node->Caption())
        .Put("open", node->Expanded())
        .Put("selected", selected)
        .Put("image", selected && node->SelectedImage() > 0 ? node->SelectedImage() : node->Image())
        .Key("nodes");
    DescribeNodes(tree, node->Children(), places, json);
    json.End();
  }
  json.EndArray();
}

void Describe(TreeView& tree, Json& json) {
  json.Key("images").BeginArray();
  if (ImageList* images = tree.Images()) {
    for (std::int32_t i = 1; i <= images->Count(); ++i) {
      json.Begin();
      PutPicture(json, images->Item(i));
      json.End();
    }
  }
  json.EndArray().Key("nodes");
  std::map<const Node*, std::int32_t> places;
  for (std::int32_t i = 1; i <= tree.NodeCount(); ++i) places[&tree.NodeAt(i)] = i;
  DescribeNodes(tree, tree.Roots(), places, json);
}

void Describe(RichTextBox& box, Json& json) {
  json.Key("runs").BeginArray();
  for (const RichTextBox::Run& run : box.Runs()) {
    json.Begin().Put("text", run.Text).Put("indent", run.Indent / kTwipsPerPixel);
    PutFont(json, run.Font);
    json.End();
  }
  json.EndArray();
}

void DescribeOwn(Control& control, Json& json) {
  switch (control.Kind()) {
    case ControlKind::Label: {
      auto& label = static_cast<Label&>(control);
      json.Put("clickable", label.Click != nullptr).Put("hears", label.MouseMove != nullptr);
      break;
    }
    case ControlKind::TextBox:
      return Describe(static_cast<TextBox&>(control), json);
    case ControlKind::ListBox:
      return Describe(static_cast<ListBox&>(control), json);
    case ControlKind::ComboBox:
      return Describe(static_cast<ComboBox&>(control), json);
    case ControlKind::CommandButton:
      return Describe(static_cast<CommandButton&>(control), json);
    case ControlKind::OptionButton:
      json.Put("on", static_cast<OptionButton&>(control).Value());
      break;
    case ControlKind::CheckBox:
      json.Put("value", std::int32_t{static_cast<CheckBox&>(control).Value()});
      break;
    case ControlKind::PictureBox: {
      auto& picture = static_cast<PictureBox&>(control);
      PutPicture(json, picture.Picture());
      json.Put("clickable", picture.Click != nullptr);
      break;
    }
    case ControlKind::TreeView:
      return Describe(static_cast<TreeView&>(control), json);
    case ControlKind::RichTextBox:
      return Describe(static_cast<RichTextBox&>(control), json);
    case ControlKind::Frame:
      break;
  }
}

void TextEvent(TextBox& box, const Message& message) {
  box.UserEdit(message.TextAt("text"), message.IntAt("start"), message.IntAt("length"));
}

void ListEvent(ListBox& list, const std::string& verb, const Message& message) {
  if (verb == "double") return list.UserDoubleClick(message.IntAt("row", -1));
  list.UserClick(message.IntAt("row", -1), message.FlagAt("control-key"),
                 message.FlagAt("shift-key"));
}

void ComboEvent(ComboBox& combo, const std::string& verb, const Message& message) {
  if (verb == "type") return combo.UserType(message.TextAt("text"));
  combo.UserChoose(message.IntAt("row"));
}

void TreeEvent(TreeView& tree, const std::string& verb, const Message& message) {
  Node& node = tree.NodeAt(message.IntAt("place"));
  if (verb == "expand") return tree.UserExpand(node, message.FlagAt("open"));
  tree.UserNodeClick(node);
}

}  // namespace

void DescribeControl(Control& control, Json& json) {
  json.Put("kind", static_cast<std::int32_t>(control.Kind()))
      .Put("name", control.Name())
      .Put("left", control.Left() / kTwipsPerPixel)
      .Put("top", control.Top() / kTwipsPerPixel)
      .Put("width", control.Width() / kTwipsPerPixel)
      .Put("height", control.Height() / kTwipsPerPixel)
      .Put("caption", control.Caption())
      .Put("usable", control.Usable())
      .Put("visible", control.Visible())
      .Put("tip", control.ToolTipText())
      .Put("label", control.AccessibleName())
      .Put("fore", control.ForeColor())
      .Put("back", control.BackColor())
      .Put("hand", control.MousePointer() == Pointer::Custom)
      .Put("tab", std::int32_t{control.TabIndex()});
  PutFont(json, control.Font());
  DescribeOwn(control, json);
}

void ControlEvent(Control& control, const Message& message) {
  const std::string verb = message.Utf8At("verb");
  if (verb == "focus") {
    if (control.Usable() && !control.HasFocus()) control.SetFocus();
    return;
  }
  switch (control.Kind()) {
    case ControlKind::Label:
      if (verb == "move") return static_cast<Label&>(control).UserMouseMove();
      return static_cast<Label&>(control).UserClick();
    case ControlKind::TextBox:
      return TextEvent(static_cast<TextBox&>(control), message);
    case ControlKind::ListBox:
      return ListEvent(static_cast<ListBox&>(control), verb, message);
    case ControlKind::ComboBox:
      return ComboEvent(static_cast<ComboBox&>(control), verb, message);
    case ControlKind::CommandButton:
      return static_cast<CommandButton&>(control).UserClick();
    case ControlKind::OptionButton:
      return static_cast<OptionButton&>(control).UserClick();
    case ControlKind::CheckBox:
      return static_cast<CheckBox&>(control).UserClick();
    case ControlKind::PictureBox:
      return static_cast<PictureBox&>(control).UserClick();
    case ControlKind::TreeView:
      return TreeEvent(static_cast<TreeView&>(control), verb, message);
    default:
      return;
  }
}

}  // namespace brelmon::web
