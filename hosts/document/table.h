// SPDX-License-Identifier: GPL-2.0-or-later
// The rows of a layer or table in a map: filter, selection, fields. What the rows come from is the
// host's.
#pragma once

#include <map>
#include <optional>
#include <set>

#include "hosts/columns/dissolve.h"
#include "hosts/common/hostfailure.h"
#include "hosts/document/tableselection.h"
#include "platform/map.h"
#include "platform/workspace.h"

namespace brelmon::document {

/// What every layer's shape column is called, whatever its source calls it.
inline constexpr TextView kShapeField = u"Shape";

struct TableSettings {
  Text name;
  Text definition;
  std::map<Text, Text> aliases;  // by field name
  std::set<Text> hiddenFields;
};

/// What has rows and stands in a map.
class IMapMember : public virtual IObject {
 public:
  /// The map has let go of it: from now on its data calls fail.
  virtual void SetGone(bool gone) = 0;
};

class Table : public IMapMember,
              public virtual columns::IColumnTable,
              public ITable,
              public ITableSelection,
              public ITableFields,
              public ITableDefinition,
              public IClass,
              public IDataset,
              public RowSelection::Owner {
 public:
  explicit Table(TableSettings settings);
  ~Table() override;

  void SetGone(bool gone) override { gone_ = gone; }

  // Rows.
  Ref<ICursor> Search(const Ref<IQueryFilter>& filter, bool recycling) override;
  std::int32_t RowCount(const Ref<IQueryFilter>& filter) override;
  Text DefinitionExpression() override { return settings_.definition; }
  void SetDefinitionExpression(const Text& expression) override;
  Rows VisibleRows(bool selected) override;

  // Selection.
  Ref<ISelectionSet> SelectionSet() override;
  void SelectRows(const Ref<IQueryFilter>& filter, SelectionMethod method, bool justOne) override;
  void Clear() override;
  void SelectionChanged() override { Changed(); }
  Ref<ICursor> SearchSelected(const Ref<IQueryFilter>& filter, bool recycling,
                              std::shared_ptr<const columns::RowIds> ids) override;

  // Fields.
  std::int32_t FieldCount() override;
  Ref<IField> Field(std::int32_t index) override;
  Ref<IFieldInfo> FieldInfo(std::int32_t index) override;
  std::int32_t FindField(const Text& name) override;
  Ref<IFields> Fields() override;

  // Dataset.
  Ref<IWorkspace> Workspace() override;
  Ref<IObject> FullName() override;

 protected:
  // The host's part.
  /// Null while the table is bound to nothing.
  virtual std::shared_ptr<columns::IRowSource> RowsOfData() const = 0;
  virtual bool HasReachedData() const = 0;
  /// Called where the data isn't reached: fails with 53 and the reason.
  virtual void ReachData() = 0;
  virtual bool HasShapes() const = 0;
  /// Whether others may be changing its rows at this moment: they are counted anew each time.
  virtual bool IsShared() const { return false; }
  /// Whether counting costs less than finding the rows.
  virtual bool CountsFast() const { return false; }
  /// Rows under a clause that was tried whose shapes share a point with a shape of the host's own.
  virtual columns::RowIds IdsMeeting(const Ref<IGeometry>& shape, const Text& clause,
                                     bool justOne) = 0;
  struct Place {
    std::string workspace, path;  // system paths of its folder or database, and of its file
    Text kind, name;              // "Shapefile"; the name in its workspace
  };
  virtual Place DataPlace() const = 0;
  /// Something that is shown of it.
  virtual void Changed() {}

  // For the host.
  const TableSettings& Settings() const { return settings_; }
  const columns::RowIds& SelectedIds() const { return *selection_->Ids(); }
  void Combine(columns::RowIds rows, SelectionMethod method);
  bool IsGone() const { return gone_; }
  bool IsReached() const { return RowsOfData() && HasReachedData() && !gone_; }
  /// Fails with 91 while it is bound to nothing.
  Place BoundPlace() const;
  /// The rows for a data call.
  std::shared_ptr<columns::IRowSource> Reached();
  /// Under the name that its rows have at home.
  void Renamed() { settings_.name = BoundPlace().name; }

 private:
  std::int64_t CountAndKeep(columns::IRowSource& source, const Text& clause);
  Text TriedClause(const Ref<IQueryFilter>& filter);

  TableSettings settings_;
  std::shared_ptr<RowSelection> selection_;
  std::map<Text, std::int32_t> counts_;
  std::optional<std::pair<Text, columns::RowIds>> counted_;  // the rows of one clause
  bool gone_ = false;
};

/// A host's table that has shapes: all that IFeatureLayer tells of.
template <class Base>
class FeatureLayerOver : public Base,
                         public ILayer,
                         public IFeatureLayer,
                         public IFeatureSelection,
                         public ILayerFields {
 public:
  using Base::Base;
  Text Name() override { return this->Settings().name; }
  bool Valid() override { return this->IsReached(); }
  Text DataSourceType() override { return this->BoundPlace().kind + u" Feature Class"; }
  void SelectFeatures(const Ref<IQueryFilter>& filter, SelectionMethod method,
                      bool justOne) override {
    this->SelectRows(filter, method, justOne);
  }
  void Clear() override { Base::Clear(); }
  void SelectionChanged() override { Base::SelectionChanged(); }
};

/// All that IStandaloneTable tells of; Table() gives the object itself. `Base` has a Bind that
/// takes over another table's rows.
template <class Base>
class StandaloneTableOver : public Base,
                            public IStandaloneTable,
                            public std::enable_shared_from_this<StandaloneTableOver<Base>> {
 public:
  using Base::Base;
  Text Name() override {
    this->BoundPlace();
    return this->Settings().name;
  }
  bool Valid() override { return this->IsReached(); }
  Ref<ITable> Table() override {
    return this->RowsOfData() ? Ref<ITable>(this->shared_from_this()) : Ref<ITable>();
  }
  void SetTable(const Ref<ITable>& table) override {
    if (this->RowsOfData()) host::Fail(failure::kInvalidCall, "The table is bound already.");
    this->Bind(table);
    this->Renamed();
    this->Changed();
  }
};

}  // namespace brelmon::document
