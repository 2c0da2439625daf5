// SPDX-License-Identifier: GPL-2.0-or-later
// The view of a list box: rows are read from the control as they come into sight.
#include <QAbstractListModel>
#include <QKeyEvent>
#include <QListView>
#include <QScrollBar>
#include <algorithm>

#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/view/look.h"
#include "hosts/qgis/view/views.h"

namespace brelmon::qgis {
namespace {

class RowModel : public QAbstractListModel {
 public:
  RowModel(ListBox& list, IFormSurface& surface) : list_(list), surface_(surface) {}
  int rowCount(const QModelIndex& parent = QModelIndex()) const override {
    return parent.isValid() ? 0 : rows_;
  }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole || !surface_.Open() || index.row() >= list_.ListCount()) return {};
    return ToQt(list_.List(index.row()));
  }
  void Reset() {
    beginResetModel();
    rows_ = list_.ListCount();
    endResetModel();
  }

 private:
  ListBox& list_;
  IFormSurface& surface_;
  int rows_ = 0;
};

/// Hands the user's clicks and keys to the control, which decides what they select.
class ListWidget : public QListView {
 public:
  ListWidget(ListBox& list, IFormSurface& surface, QWidget* parent)
      : QListView(parent), list_(list), surface_(surface) {
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setMouseTracking(false);
  }
  void selectAll() override {
    const int last = model()->rowCount() - 1;
    if (last < 0 || !Extended()) return;
    Click(0, Qt::NoModifier);
    Click(last, Qt::ShiftModifier);
  }

 protected:
  void mousePressEvent(QMouseEvent* event) override {
    if (event->button() != Qt::LeftButton) return;
    Click(RowAt(*event), event->modifiers());
  }
  void mouseMoveEvent(QMouseEvent* event) override {
    const int row = RowAt(*event);
    if (!(event->buttons() & Qt::LeftButton) || row < 0 || row == currentIndex().row()) return;
    Click(row, Extended() ? Qt::ShiftModifier : Qt::NoModifier);
  }
  void mouseReleaseEvent(QMouseEvent*) override {}
  void mouseDoubleClickEvent(QMouseEvent* event) override {
    if (event->button() != Qt::LeftButton) return;
    const int row = RowAt(*event);
    surface_.Do([&] { list_.UserDoubleClick(row); });
  }
  void keyPressEvent(QKeyEvent* event) override {
    if (event->matches(QKeySequence::SelectAll)) return selectAll();
    const int last = model()->rowCount() - 1;
    const int row = RowFor(event->key(), last);
    if (row >= 0 && last >= 0) {
      Click(std::clamp(row, 0, last), event->modifiers() & Qt::ShiftModifier);
    } else if (event->key() == Qt::Key_Space && currentIndex().isValid()) {
      Click(currentIndex().row(), Extended() ? Qt::ControlModifier : Qt::NoModifier);
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
               event->key() == Qt::Key_Escape) {
      event->ignore();
    } else {
      QListView::keyPressEvent(event);  // searches for what is typed
    }
  }
  // What Qt would select by itself, nobody would hear of.
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex&,
                                                       const QEvent*) const override {
    return QItemSelectionModel::NoUpdate;
  }
  // Coming by alone puts no row in front.
  void focusInEvent(QFocusEvent* event) override {
    const QModelIndex before = currentIndex();
    QListView::focusInEvent(event);
    if (!before.isValid()) {
      selectionModel()->setCurrentIndex(QModelIndex(), QItemSelectionModel::NoUpdate);
    }
  }
  void keyboardSearch(const QString& search) override {
    const int before = currentIndex().row();
    QListView::keyboardSearch(search);
    const int found = currentIndex().row();
    if (found >= 0 && found != before) Click(found, Qt::NoModifier);
  }

 private:
  bool Extended() const { return list_.MultiSelect() == ListBox::Select::Extended; }
  int RowAt(const QMouseEvent& event) const { return indexAt(event.pos()).row(); }
  int RowFor(int key, int last) const {
    const int at = currentIndex().row();
    const int page = std::max(1, viewport()->height() / std::max(1, sizeHintForRow(0)) - 1);
    switch (key) {
      case Qt::Key_Up:
        return std::max(0, at - 1);
      case Qt::Key_Down:
        return at + 1;
      case Qt::Key_Home:
        return 0;
      case Qt::Key_End:
        return last;
      case Qt::Key_PageUp:
        return std::max(0, at - page);
      case Qt::Key_PageDown:
        return at + page;
      default:
        return -1;
    }
  }
  void Click(int row, Qt::KeyboardModifiers keys) {
    const bool control = keys & Qt::ControlModifier, shift = keys & Qt::ShiftModifier;
    surface_.Do([&] { list_.UserClick(row, control, shift); });
  }

  ListBox& list_;
  IFormSurface& surface_;
};

class ListView : public ControlView {
 public:
  ListView(ListBox& list, IFormSurface& surface, QWidget* parent)
      : list_(list), model_(list, surface), widget_(*new ListWidget(list, surface, parent)) {
    widget_.setModel(&model_);
  }
  ~ListView() override = default;
  QWidget& Widget() override { return widget_; }
  void Update(const Aspects& aspects) override {
    if (aspects.Has(Aspect::Items)) model_.Reset();
    if (aspects.Has(Aspect::Items) || aspects.Has(Aspect::Selection)) ShowSelection();
  }

 private:
  void ShowSelection() {
    const bool extended = list_.MultiSelect() == ListBox::Select::Extended;
    widget_.setSelectionMode(extended ? QListView::ExtendedSelection : QListView::SingleSelection);
    const std::int32_t rows = model_.rowCount();
    QItemSelection chosen;
    for (std::int32_t row = 0; extended && row < rows; ++row) {
      if (!list_.Selected(row)) continue;
      const std::int32_t first = row;
      while (row + 1 < rows && list_.Selected(row + 1)) ++row;
      chosen.append(QItemSelectionRange(model_.index(first), model_.index(row)));
    }
    const std::int32_t at = list_.ListIndex();
    const QModelIndex current = at >= 0 && at < rows ? model_.index(at) : QModelIndex();
    if (!extended && current.isValid()) chosen.append(QItemSelectionRange(current));
    auto* selection = widget_.selectionModel();
    selection->select(chosen, QItemSelectionModel::ClearAndSelect);
    selection->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    if (current.isValid()) widget_.scrollTo(current);
  }

  ListBox& list_;
  RowModel model_;
  ListWidget& widget_;
};

}  // namespace

std::unique_ptr<ControlView> NewListView(ListBox& list, IFormSurface& surface, QWidget* parent) {
  return std::make_unique<ListView>(list, surface, parent);
}

}  // namespace brelmon::qgis
