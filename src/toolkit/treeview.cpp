// SPDX-License-Identifier: GPL-2.0-or-later
// The tree: nodes in order of addition, some under keys, with pictures by number.
#include "toolkit/treeview.h"
#include "toolkit/dump.h"

namespace brelmon {

const Picture& ImageList::Item(std::int32_t number) const { return At(pictures_, number - 1); }

void Node::SetImage(std::int32_t image) {
  tree_->Assign(image_, tree_->CheckedImage(image), Aspect::Look);
}

void Node::SetSelectedImage(std::int32_t image) {
  tree_->Assign(selectedImage_, tree_->CheckedImage(image), Aspect::Look);
}

std::int32_t TreeView::CheckedImage(std::int32_t image) const {
  if (image < 0 || (images_ && image > images_->Count())) Raise(failure::kSubscript);
  return image;
}

void TreeView::SetImageList(ImageList* images) { Assign(images_, images, Aspect::Look); }

Node& TreeView::AddNode(const Text& parentKey, const Text& key, const Text& text,
                        std::int32_t image) {
  Touch();
  Node* const parent = parentKey.empty() ? nullptr : &NodeOf(parentKey);
  if (!key.empty() && keys_.count(key) != 0) Raise(failure::kDuplicateKey);
  auto node = std::make_unique<Node>();
  Node& added = *node;
  added.tree_ = this;
  added.key_ = key;
  added.text_ = text;
  added.parent_ = parent;
  added.image_ = added.selectedImage_ = CheckedImage(image);
  if (!key.empty()) keys_.emplace(key, &added);
  (parent ? parent->children_ : roots_).push_back(&added);
  nodes_.push_back(std::move(node));
  Changed(Aspect::Items);
  return added;
}

void TreeView::ClearNodes() {
  Touch();
  selected_ = nullptr;
  roots_.clear();
  keys_.clear();
  // The view lets go of the nodes before they end.
  const auto gone = std::move(nodes_);
  nodes_.clear();
  Changed(Aspect::Items);
}

Node& TreeView::NodeAt(std::int32_t position) {
  Touch();
  return *At(nodes_, position - 1);
}

Node& TreeView::NodeOf(const Text& key) {
  Touch();
  const auto hit = keys_.find(key);
  if (hit == keys_.end()) Raise(failure::kInvalidCall);
  return *hit->second;
}

void TreeView::UserNodeClick(Node& node) {
  if (!Usable()) return;
  TakeFocus();
  Assign(selected_, &node, Aspect::Selection);
  Fire([&] {
    if (NodeClick) NodeClick(node);
  });
}

void TreeView::UserExpand(Node& node, bool expanded) {
  if (Usable()) Assign(node.expanded_, expanded, Aspect::Value);
}

void TreeView::ResetDesign() {
  Control::ResetDesign();
  selected_ = nullptr;
  images_ = nullptr;
  roots_.clear();
  keys_.clear();
  nodes_.clear();
}

void TreeView::DumpNodes(const std::vector<Node*>& nodes, Text& dump) const {
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    const Node& node = *nodes[i];
    dump += i == 0 ? u"" : u", ";
    if (&node == selected_) dump += u">";
    dump += dump::Quoted(node.text_) + u" #" + dump::Number(node.image_);
    if (node.selectedImage_ != node.image_) dump += u"/" + dump::Number(node.selectedImage_);
    if (!node.key_.empty()) dump += u" key=" + dump::Quoted(node.key_);
    if (!node.Tag.empty()) dump += u" tag=" + dump::Quoted(node.Tag);
    if (node.expanded_) dump += u" expanded";
    if (node.children_.empty()) continue;
    dump += u" {";
    DumpNodes(node.children_, dump);
    dump += u"}";
  }
}

Text TreeView::DumpOwn() {
  Text own = u" nodes=" + dump::Number(static_cast<double>(nodes_.size()));
  if (!roots_.empty()) own += u": ";
  DumpNodes(roots_, own);
  return own;
}

}  // namespace brelmon
