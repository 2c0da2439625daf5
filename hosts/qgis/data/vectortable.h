// SPDX-License-Identifier: GPL-2.0-or-later
// What feature layers and standalone tables have in common: fields, rows, selection, filter.
#pragma once

#include <qgsvectorlayer.h>

#include <QPointer>

#include "hosts/columns/dissolve.h"
#include "hosts/qgis/data/layerobject.h"
#include "hosts/qgis/data/layerrows.h"
#include "platform/map.h"
#include "platform/workspace.h"

namespace brelmon::qgis {

/// A layer that may go at any time. Owns it as long as no project does.
class LayerHandle {
 public:
  explicit LayerHandle(QgsMapLayer* layer);
  explicit LayerHandle(std::unique_ptr<QgsMapLayer> layer);
  QgsMapLayer* IfThere() const { return layer_; }
  /// Fails with 424, naming the layer, once it is gone.
  QgsMapLayer& Layer() const;
  bool Valid() const;  // false once it is gone
  QgsMapLayer* Release();
  /// Of a valid vector layer: its file, or null.
  const std::shared_ptr<data::TableSource>& FileIfWhole() const;
  /// The same for whoever reads rows: fails with 53 and the reason where the file is damaged.
  const std::shared_ptr<data::TableSource>& File() const;

 private:
  QPointer<QgsMapLayer> layer_;
  std::unique_ptr<QgsMapLayer> owned_;
  Text name_;
  mutable FileOfLayer file_;
};

struct FieldTable;

class VectorTable : public virtual IQgisLayer,
                    public virtual ITableSelection,
                    public virtual ITableFields,
                    public virtual ITable,
                    public virtual ITableDefinition,
                    public virtual IClass,
                    public virtual IDataset,
                    public virtual columns::IColumnTable {
 public:
  explicit VectorTable(std::shared_ptr<LayerHandle> handle) : handle_(std::move(handle)) {}

  QgsMapLayer* LayerIfThere() override { return handle_ ? handle_->IfThere() : nullptr; }
  QgsMapLayer* Release() override { return handle_ ? handle_->Release() : nullptr; }
  const std::shared_ptr<LayerHandle>& Handle() const { return handle_; }
  /// Fails with 91 while bound to nothing, with 424 once the layer is gone.
  QgsVectorLayer& Layer() const;
  /// Fails with 53 too, where its data can't be reached.
  QgsVectorLayer& Readable() const;

  std::int32_t FieldCount() override;
  Ref<IField> Field(std::int32_t index) override;
  Ref<IFieldInfo> FieldInfo(std::int32_t index) override;
  std::int32_t FindField(const Text& name) override;
  Ref<IFields> Fields() override;

  Ref<ICursor> Search(const Ref<IQueryFilter>& filter, bool recycling) override;
  std::int32_t RowCount(const Ref<IQueryFilter>& filter) override;

  Text DefinitionExpression() override;
  void SetDefinitionExpression(const Text& expression) override;

  Ref<ISelectionSet> SelectionSet() override;
  void SelectRows(const Ref<IQueryFilter>& filter, SelectionMethod method, bool justOne) override;
  void Clear() override;
  void SelectionChanged() override;

  Ref<IWorkspace> Workspace() override;
  Ref<IObject> FullName() override;
  Rows VisibleRows(bool selected) override;

 protected:
  std::shared_ptr<LayerHandle> handle_;

 private:
  std::shared_ptr<const FieldTable> ShownFields() const;
};

}  // namespace brelmon::qgis
