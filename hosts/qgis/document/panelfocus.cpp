// SPDX-License-Identifier: GPL-2.0-or-later
// Looks at panel and frames once a click or key is over, and keeps selection and focus together.
#include "hosts/qgis/document/panelfocus.h"

#include <qgslayertree.h>
#include <qgslayertreeview.h>
#include <qgsproject.h>

#include <QApplication>
#include <QSet>
#include <QTimer>

#include "hosts/qgis/document/dataframes.h"

namespace brelmon::qgis {
namespace {

class FocusOfPanel : public PanelFocus {
 public:
  FocusOfPanel(QgsLayerTreeView& panel, std::function<void()> changed)
      : panel_(panel), changed_(std::move(changed)) {
    timer_.setSingleShot(true);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Look(); });
    const auto soon = [this] { timer_.start(0); };
    QObject::connect(panel.selectionModel(), &QItemSelectionModel::selectionChanged, &timer_, soon);
    const QgsProject* project = QgsProject::instance();
    QObject::connect(project->layerTreeRoot(), &QgsLayerTreeNode::visibilityChanged, &timer_, soon);
    // What a project opens with, nobody has done.
    const auto anew = [this] {
      timer_.stop();
      shown_ = Shown();
    };
    QObject::connect(project, &QgsProject::readProject, &timer_, anew);
    QObject::connect(project, &QgsProject::cleared, &timer_, anew);
    shown_ = Shown();
  }

 private:
  using Frames = QSet<const QgsLayerTreeGroup*>;

  static Frames Shown() {
    Frames shown;
    for (const QgsLayerTreeGroup* frame : FrameNodes()) {
      if (frame->itemVisibilityChecked()) shown << frame;
    }
    return shown;
  }

  /// The one frame in which all that is selected stands; null if there is no such.
  QgsLayerTreeGroup* Picked() const {
    QgsLayerTreeGroup* picked = nullptr;
    for (QgsLayerTreeNode* node : panel_.selectedNodes()) {
      QgsLayerTreeGroup* frame = FrameAround(*node);
      if (!frame || (picked && picked != frame)) return nullptr;
      picked = frame;
    }
    return picked;
  }

  void Look() {
    // A button still pressed may be about to switch the mark of the very item.
    if (QApplication::mouseButtons() != Qt::NoButton) return timer_.start(20);
    QgsLayerTreeGroup* picked = Picked();
    QgsLayerTreeGroup* focus = FocusNode();
    if (picked && picked != focus) {
      const bool justHidden = shown_.contains(picked) && !picked->itemVisibilityChecked();
      if (justHidden) {
        SelectInPanel(*focus);
      } else {
        BringIntoFocus(*picked);
      }
      changed_();
    }
    shown_ = Shown();
  }

  QgsLayerTreeView& panel_;
  std::function<void()> changed_;
  QTimer timer_;  // ends every connection with itself
  Frames shown_;
};

}  // namespace

std::unique_ptr<PanelFocus> PanelFocus::Start(QgsLayerTreeView& panel,
                                              std::function<void()> changed) {
  return std::make_unique<FocusOfPanel>(panel, std::move(changed));
}

}  // namespace brelmon::qgis
