// SPDX-License-Identifier: GPL-2.0-or-later
// QGIS's own menu of a top-level group, with "Data frame" appended. The menu has no signal, so
// the panel's events are filtered; for all other items QGIS is left alone.
#include "hosts/qgis/plugin/framemenu.h"

#include <qgslayertree.h>
#include <qgslayertreemodel.h>
#include <qgslayertreeview.h>

#include <QContextMenuEvent>
#include <QMenu>
#include <QPointer>

#include "hosts/qgis/document/dataframes.h"

namespace brelmon::qgis {
namespace {

class FrameMenuOfPanel : public FrameMenu, public QObject {
 public:
  explicit FrameMenuOfPanel(QgsLayerTreeView& panel) : panel_(&panel) {
    panel.viewport()->installEventFilter(this);
  }

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::ContextMenu || !panel_ || !panel_->menuProvider()) return false;
    const auto& request = *static_cast<QContextMenuEvent*>(event);
    QgsLayerTreeGroup* group = TopLevelGroupAt(request.pos());
    if (!group) return false;
    const std::unique_ptr<QMenu> menu(panel_->menuProvider()->createContextMenu());
    if (!menu) return false;
    Append(*menu, *group);
    menu->exec(request.globalPos());
    return true;
  }

 private:
  QgsLayerTreeGroup* TopLevelGroupAt(const QPoint& point) const {
    const QModelIndex index = panel_->indexAt(point);
    if (!index.isValid()) return nullptr;
    QgsLayerTreeNode* node = panel_->index2node(index);
    if (!node || !QgsLayerTree::isGroup(node) || !node->parent() || node->parent()->parent()) {
      return nullptr;
    }
    return QgsLayerTree::toGroup(node);
  }

  static void Append(QMenu& menu, QgsLayerTreeGroup& group) {
    const QPointer<QgsLayerTreeGroup> there(&group);
    const bool marked = IsMarkedFrame(group);
    menu.addSeparator();
    QAction* mark = menu.addAction(QObject::tr("Data frame"));
    mark->setObjectName(QStringLiteral("BrelmonDataFrame"));
    mark->setCheckable(true);
    mark->setChecked(marked);
    QObject::connect(mark, &QAction::triggered, mark, [there](bool frame) {
      if (!there) return;
      MarkFrame(*there, frame);
      if (frame) FocusOn(*there);
    });
    if (!marked || FocusNode() == &group) return;
    QAction* show = menu.addAction(QObject::tr("Show this data frame"));
    show->setObjectName(QStringLiteral("BrelmonShowDataFrame"));
    QObject::connect(show, &QAction::triggered, show, [there] {
      if (there) FocusOn(*there);
    });
  }

  QPointer<QgsLayerTreeView> panel_;
};

}  // namespace

std::unique_ptr<FrameMenu> FrameMenu::Install(QgsLayerTreeView& panel) {
  return std::make_unique<FrameMenuOfPanel>(panel);
}

}  // namespace brelmon::qgis
