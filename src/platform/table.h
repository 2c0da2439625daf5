// SPDX-License-Identifier: GPL-2.0-or-later
// Tables: fields, rows, cursors, queries, selections.
#pragma once

#include <cstdint>

#include "platform/object.h"
#include "platform/text.h"
#include "platform/value.h"

namespace brelmon {

class IGeometry;

/// esriFieldType codes.
enum class FieldType : std::int32_t {
  SmallInteger = 0,
  Integer = 1,
  Single = 2,
  Double = 3,
  String = 4,
  Date = 5,
  OID = 6,
  Geometry = 7,
  Blob = 8,
};

class IField : public virtual IObject {
 public:
  virtual Text Name() = 0;  // as the source spells it
  virtual FieldType Type() = 0;
};

/// How a layer or table shows a field.
class IFieldInfo : public virtual IObject {
 public:
  virtual Text Alias() = 0;    // the field's name where it has no other
  virtual bool Visible() = 0;  // whether a table window shows its column
};

/// Fields in their own order, hidden ones included; index from 0, out of bounds fails with 9.
class IFieldsView : public virtual IObject {
 public:
  virtual std::int32_t FieldCount() = 0;
  virtual Ref<IField> Field(std::int32_t index) = 0;
  virtual Ref<IFieldInfo> FieldInfo(std::int32_t index) = 0;
};
/// Offered by feature layers only.
class ILayerFields : public virtual IFieldsView {};
/// Offered by feature layers and standalone tables.
class ITableFields : public virtual IFieldsView {};

/// All fields of a table; index from 0, out of bounds fails with 9.
class IFields : public virtual IObject {
 public:
  virtual std::int32_t FieldCount() = 0;
  virtual Ref<IField> Field(std::int32_t index) = 0;
};

class IClass : public virtual IObject {
 public:
  /// Index of the field of that actual name, regardless of case; -1 if there is none.
  virtual std::int32_t FindField(const Text& name) = 0;
  virtual Ref<IFields> Fields() = 0;  // never unset
};

class IQueryFilter : public virtual IObject {
 public:
  Text WhereClause;  // empty: every row
  Text SubFields;    // name of the one field that will be read; empty: all
};

class ISpatialFilter : public IQueryFilter {
 public:
  Text GeometryField;
  std::int32_t SpatialRel = 0;  // 1 intersects
  Ref<IGeometry> Geometry;
};

class IRowBuffer : public virtual IObject {
 public:
  /// Index in the table's fields from 0; out of bounds fails with 9. Whole numbers that 32 bits
  /// can't hold come as doubles.
  virtual brelmon::Value Value(std::int32_t index) = 0;
};

class ICursor : public virtual IObject {
 public:
  /// The next row, unset at the end. A recycling cursor hands out one row object again and again.
  virtual Ref<IRowBuffer> NextRow() = 0;
};

/// Rows under the present filter definition. An unset filter takes them all; a query that the
/// source can't parse, or that names a field that isn't there, fails with E_FAIL.
class ITable : public virtual IObject {
 public:
  /// A cursor in front of the first row; with `recycling` it hands out one row object throughout. A
  /// field of SubFields that isn't there fails with E_FAIL, data that can't be reached with 53.
  virtual Ref<ICursor> Search(const Ref<IQueryFilter>& filter, bool recycling) = 0;
  /// Number of rows that Search would give; more than 32 bits can count fail with 6.
  virtual std::int32_t RowCount(const Ref<IQueryFilter>& filter) = 0;
};

class ITableDefinition : public virtual IObject {
 public:
  /// The filter as it was set; empty where there is none.
  virtual Text DefinitionExpression() = 0;
  /// Leaves the selection alone; blanks are no filter. Fails as ITable::Search does.
  virtual void SetDefinitionExpression(const Text& expression) = 0;
};

/// The selected rows whenever it is asked.
class ISelectionSet : public virtual IObject {
 public:
  virtual std::int32_t Count() = 0;  // rows that a filter hides among them
  /// Those that are visible and satisfy the filter; as ITable::Search.
  virtual Ref<ICursor> Search(const Ref<IQueryFilter>& filter, bool recycling) = 0;
};

enum class SelectionMethod : std::int32_t { New = 0, Add = 1, Subtract = 2, And = 3, Xor = 4 };

class ITableSelection : public virtual IObject {
 public:
  /// Unset for data that can't be reached.
  virtual Ref<ISelectionSet> SelectionSet() = 0;
  /// Combines the rows under the filter, an unset one takes all that are visible, with what is
  /// selected; with `justOne` the first of them. Fails as ITable::Search does.
  virtual void SelectRows(const Ref<IQueryFilter>& filter, SelectionMethod method,
                          bool justOne) = 0;
  virtual void Clear() = 0;
  /// Tells whoever shows the selection that it changed.
  virtual void SelectionChanged() = 0;
};

/// The same for a layer with shapes.
class IFeatureSelection : public virtual IObject {
 public:
  /// A spatial filter whose geometry field is not the layer's fails with E_FAIL.
  virtual void SelectFeatures(const Ref<IQueryFilter>& filter, SelectionMethod method,
                              bool justOne) = 0;
  virtual void Clear() = 0;
  virtual void SelectionChanged() = 0;
};

class IEnumValue : public virtual IObject {
 public:
  /// The next unique value, empty at the end. A null is not among them.
  virtual Value Next() = 0;
};

/// The unique values of one field on a cursor. Set both before asking.
class IDataStatistics : public virtual IObject {
 public:
  virtual void SetField(const Text& name) = 0;
  /// The cursor is read to its end by the first question.
  virtual void SetCursor(const Ref<ICursor>& cursor) = 0;
  /// Fails with 5 for a field that the cursor hasn't, or where either is missing.
  virtual Ref<IEnumValue> UniqueValues() = 0;
  virtual std::int32_t UniqueValueCount() = 0;
};

}  // namespace brelmon
