// SPDX-License-Identifier: GPL-2.0-or-later
// The tree, its nodes and their pictures.
#pragma once

#include <map>
#include <memory>
#include <vector>

#include "platform/collection.h"
#include "toolkit/form.h"

namespace brelmon {

/// Pictures that a tree shows by number, from 1.
class ImageList {
 public:
  void Add(Picture picture) { pictures_.push_back(std::move(picture)); }
  std::int32_t Count() const { return static_cast<std::int32_t>(pictures_.size()); }
  /// Out of bounds fails with 9.
  const Picture& Item(std::int32_t number) const;

 private:
  std::vector<Picture> pictures_;
};

class TreeView;

class Node {
 public:
  const Text& Key() const { return key_; }
  const brelmon::Text& Caption() const { return text_; }
  Text Tag;
  std::int32_t Data = 0;  // what whoever adds the node keeps with it
  Node* Parent() const { return parent_; }
  std::int32_t Image() const { return image_; }
  std::int32_t SelectedImage() const { return selectedImage_; }
  void SetImage(std::int32_t image);
  void SetSelectedImage(std::int32_t image);
  bool Expanded() const { return expanded_; }
  const std::vector<Node*>& Children() const { return children_; }

 private:
  friend class TreeView;
  TreeView* tree_ = nullptr;
  Text key_, text_;
  Node* parent_ = nullptr;
  std::vector<Node*> children_;
  std::int32_t image_ = 0, selectedImage_ = 0;
  bool expanded_ = false;
};

/// Tells views of nodes that come and go as Items, of their pictures as Look, of what is
/// expanded as Value.
class TreeView : public Control {
 public:
  TreeView(Form& owner, Text name) : Control(owner, ControlKind::TreeView, std::move(name)) {}
  std::function<void(Node&)> NodeClick;
  ImageList* Images() { return Loaded(images_); }
  void SetImageList(ImageList* images);
  /// Under no parent for an unset `parentKey`. A key that stands already fails with 457, an
  /// unknown parent with 5, an image that the list lacks with 9 (0 is none). A node without a
  /// key can't be found by one.
  Node& AddNode(const Text& parentKey, const Text& key, const Text& text, std::int32_t image);
  void ClearNodes();
  std::int32_t NodeCount() { return static_cast<std::int32_t>(Loaded(nodes_).size()); }
  Node& NodeAt(std::int32_t position);  // from 1, in order of addition; fails with 9
  Node& NodeOf(const Text& key);        // fails with 5
  const std::vector<Node*>& Roots() { return Loaded(roots_); }
  Node* SelectedNode() { return Loaded(selected_); }
  void UserNodeClick(Node& node);
  void UserExpand(Node& node, bool expanded);

 protected:
  void ResetDesign() override;
  Text DumpOwn() override;

 private:
  friend class Node;
  std::int32_t CheckedImage(std::int32_t image) const;
  void DumpNodes(const std::vector<Node*>& nodes, Text& dump) const;
  std::vector<std::unique_ptr<Node>> nodes_;
  std::map<Text, Node*, NoCaseLess> keys_;
  std::vector<Node*> roots_;
  ImageList* images_ = nullptr;
  Node* selected_ = nullptr;
};

}  // namespace brelmon
