// SPDX-License-Identifier: GPL-2.0-or-later
// Views of combo boxes and trees.
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QTreeWidget>

#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/view/look.h"
#include "hosts/qgis/view/pictures.h"
#include "hosts/qgis/view/views.h"

namespace brelmon::qgis {
namespace {

class ComboView : public ControlView {
 public:
  ComboView(ComboBox& combo, IFormSurface& surface, QWidget* parent)
      : combo_(combo), surface_(surface), widget_(*new QComboBox(parent)) {
    widget_.setInsertPolicy(QComboBox::NoInsert);
    widget_.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    QObject::connect(&widget_, qOverload<int>(&QComboBox::activated), &widget_,
                     [this](int row) { surface_.Do([this, row] { combo_.UserChoose(row); }); });
    ShowKind();
  }
  QWidget& Widget() override { return widget_; }
  bool Urgent(Aspect aspect) const override { return aspect == Aspect::Value; }
  void Update(const Aspects& aspects) override {
    const QSignalBlocker silent(widget_);
    if (aspects.Has(Aspect::State)) ShowKind();
    if (aspects.Has(Aspect::Items)) ShowRows();
    if (widget_.count() != combo_.ListCount()) return;  // its rows come at the end of the turn
    if (widget_.currentIndex() != combo_.ListIndex()) widget_.setCurrentIndex(combo_.ListIndex());
    const QString text = ToQt(combo_.Text());
    if (widget_.isEditable() && widget_.currentText() != text) widget_.setEditText(text);
  }
  QSize Needed(int) const override { return {0, QFontMetrics(widget_.font()).height() + 6}; }

 private:
  void ShowKind() {
    const bool editable = !combo_.ListOnly();
    if (widget_.isEditable() == editable) return;
    widget_.setEditable(editable);
    if (!editable) return;
    widget_.setCompleter(nullptr);
    QObject::connect(
        widget_.lineEdit(), &QLineEdit::textEdited, &widget_,
        [this](const QString& text) { surface_.Do([&] { combo_.UserType(FromQt(text)); }); });
  }
  void ShowRows() {
    QStringList rows;
    for (std::int32_t row = 0; row < combo_.ListCount(); ++row) rows << ToQt(combo_.List(row));
    widget_.clear();
    widget_.addItems(rows);
    widget_.setCurrentIndex(combo_.ListIndex());
  }

  ComboBox& combo_;
  IFormSurface& surface_;
  QComboBox& widget_;
};

/// Space clicks the node that the keys have walked to.
class TreeWidget : public QTreeWidget {
 public:
  using QTreeWidget::QTreeWidget;
  std::function<void(QTreeWidgetItem&)> click;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Space && currentItem()) return click(*currentItem());
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return event->ignore();
    QTreeWidget::keyPressEvent(event);
  }
};

class TreeWidgetView : public ControlView {
 public:
  TreeWidgetView(TreeView& tree, IFormSurface& surface, QWidget* parent)
      : tree_(tree), surface_(surface), widget_(*new TreeWidget(parent)) {
    widget_.setHeaderHidden(true);
    widget_.click = [this](QTreeWidgetItem& item) { Click(item); };
    QObject::connect(&widget_, &QTreeWidget::itemClicked, &widget_,
                     [this](QTreeWidgetItem* item) { Click(*item); });
    QObject::connect(&widget_, &QTreeWidget::itemExpanded, &widget_,
                     [this](QTreeWidgetItem* item) { Expand(*item, true); });
    QObject::connect(&widget_, &QTreeWidget::itemCollapsed, &widget_,
                     [this](QTreeWidgetItem* item) { Expand(*item, false); });
  }
  QWidget& Widget() override { return widget_; }
  void Rescale() override {
    const int side = surface_.Pixels(16 * kTwipsPerPixel);
    widget_.setIconSize({side, side});
  }
  // Nodes that the control drops are let go of at once.
  bool Urgent(Aspect aspect) const override { return aspect == Aspect::Items && Stale(); }
  void Update(const Aspects& aspects) override {
    const QSignalBlocker silent(widget_);
    if (aspects.Has(Aspect::Items)) Rebuild();
    if (aspects.Has(Aspect::Items) || aspects.Has(Aspect::Look)) icons_.clear();
    for (const auto& [node, item] : items_) Show(*node, *item);
    if (Node* selected = tree_.SelectedNode()) {
      const auto hit = items_.find(selected);
      if (hit != items_.end()) widget_.setCurrentItem(hit->second);
    } else if (items_.empty()) {
      widget_.setCurrentItem(nullptr);
    }
  }

 private:
  bool Stale() const { return tree_.NodeCount() < static_cast<std::int32_t>(items_.size()); }
  void Rebuild() {
    widget_.clear();
    items_.clear();
    nodes_.clear();
    for (Node* root : tree_.Roots()) Add(*root, nullptr);
  }
  void Add(Node& node, QTreeWidgetItem* parent) {
    auto* item = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(&widget_);
    item->setText(0, ToQt(node.Caption()));
    items_[&node] = item;
    nodes_[item] = &node;
    for (Node* child : node.Children()) Add(*child, item);
  }
  void Show(const Node& node, QTreeWidgetItem& item) {
    const bool selected = tree_.SelectedNode() == &node;
    item.setIcon(0, IconNumber(selected ? node.SelectedImage() : node.Image()));
    item.setExpanded(node.Expanded());
  }
  QIcon IconNumber(std::int32_t number) {
    ImageList* images = tree_.Images();
    if (!images || number < 1 || number > images->Count()) return {};
    auto& icon = icons_[number];
    const Picture& picture = images->Item(number);
    if (icon.isNull() && picture) icon = IconOf(*picture);
    return icon;
  }
  void Click(QTreeWidgetItem& item) {
    const auto hit = nodes_.find(&item);
    if (hit == nodes_.end()) return;
    surface_.Do([this, node = hit->second] { tree_.UserNodeClick(*node); });
  }
  void Expand(QTreeWidgetItem& item, bool expanded) {
    const auto hit = nodes_.find(&item);
    if (hit == nodes_.end()) return;
    surface_.Do([&, node = hit->second] { tree_.UserExpand(*node, expanded); });
  }

  TreeView& tree_;
  IFormSurface& surface_;
  TreeWidget& widget_;
  std::map<const Node*, QTreeWidgetItem*> items_;
  std::map<QTreeWidgetItem*, Node*> nodes_;
  std::map<std::int32_t, QIcon> icons_;
};

}  // namespace

std::unique_ptr<ControlView> NewComboView(ComboBox& combo, IFormSurface& surface, QWidget* parent) {
  return std::make_unique<ComboView>(combo, surface, parent);
}

std::unique_ptr<ControlView> NewTreeView(TreeView& tree, IFormSurface& surface, QWidget* parent) {
  return std::make_unique<TreeWidgetView>(tree, surface, parent);
}

}  // namespace brelmon::qgis
