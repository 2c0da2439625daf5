// SPDX-License-Identifier: GPL-2.0-or-later
// FlatGeobuf 3: a header, then a feature a row, each a FlatBuffer behind its length.
#include "hosts/web/flatgeobuf.h"

#include <algorithm>
#include <cmath>

#include "hosts/web/fgbvalues.h"
#include "hosts/web/flattable.h"

namespace brelmon::web {
namespace {

// Slots of the format's tables.
namespace header {
constexpr int kGeometryType = 2, kColumns = 7, kRows = 8, kIndexNodeSize = 9;
}
namespace column {
constexpr int kType = 1;
}
namespace feature {
constexpr int kGeometry = 0, kProperties = 1;
}
namespace geometry {
constexpr int kEnds = 0, kXy = 1, kType = 6, kParts = 7;
constexpr int kTypePoint = 1, kTypeLine = 2, kTypePolygon = 3, kTypePoints = 4, kTypeLines = 5,
              kTypePolygons = 6, kTypeCollection = 7;
}  // namespace geometry

class Reader {
 public:
  Reader(std::string bytes, std::vector<columns::Field> fields) {
    table_->bytes = std::move(bytes);
    table_->fields = std::move(fields);
    rest_ = table_->bytes;
  }

  std::shared_ptr<ColumnTable> Read() {
    constexpr std::string_view kMagic = "fgb\3fgb";
    if (Take(8).substr(0, kMagic.size()) != kMagic) RefuseTable("it is no FlatGeobuf table");
    ReadHeader(FlatTable(Take(TakeSize())));
    while (!rest_.empty()) ReadRow(FlatTable(Take(TakeSize())));
    for (StoredColumn& column : table_->columns) {
      if (std::find(column.nulls.begin(), column.nulls.end(), 1) == column.nulls.end()) {
        column.nulls = {};
      }
    }
    return table_;
  }

 private:
  std::string_view Take(std::size_t size) {
    if (rest_.size() < size) RefuseTable("the file is cut short");
    const std::string_view taken = rest_.substr(0, size);
    rest_.remove_prefix(size);
    return taken;
  }
  std::size_t TakeSize() {
    std::uint32_t size = 0;
    std::memcpy(&size, Take(sizeof size).data(), sizeof size);
    return size;
  }

  void ReadHeader(const FlatTable& head) {
    if (head.Scalar<std::uint16_t>(header::kIndexNodeSize, 16) != 0)
      RefuseTable("it has a spatial index");
    const std::uint32_t count = head.Vector<std::uint32_t>(header::kColumns).size();
    for (std::uint32_t i = 0; i < count; ++i) {
      const auto type = head.TableAt(header::kColumns, i).Scalar<std::uint8_t>(column::kType, 0);
      if (type > static_cast<std::uint8_t>(FileType::Binary))
        RefuseTable("a column of an unknown type");
      types_.push_back(static_cast<FileType>(type));
    }
    auto due = static_cast<std::size_t>(
        std::count_if(table_->fields.begin(), table_->fields.end(),
                      [](const columns::Field& field) { return !field.IsId; }));
    if (types_.size() != due + 1 || StorageOf(types_[0]) != columns::Storage::Whole) {
      RefuseTable("its columns are not those of the document");
    }
    geometryType_ = head.Scalar<std::uint8_t>(header::kGeometryType, 0);
    MakeColumns(std::min<std::size_t>(head.Scalar<std::uint64_t>(header::kRows, 0), rest_.size()));
  }

  void MakeColumns(std::size_t rows) {
    table_->columns.resize(table_->fields.size());
    table_->ids.reserve(rows);
    std::size_t next = 1;
    places_.push_back(0);
    for (std::size_t i = 0; i < table_->fields.size(); ++i) {
      columns::Field& field = table_->fields[i];
      StoredColumn& column = table_->columns[i];
      field.Stored = columns::Storage::Whole;
      if (field.IsId) continue;
      const FileType type = types_[next++];
      field.Stored = StorageOf(type);
      field.Logical = type == FileType::Bool;
      places_.push_back(i);
      column.nulls.reserve(rows);
      if (field.Stored == columns::Storage::Whole) column.wholes.reserve(rows);
      if (field.Stored == columns::Storage::Real) column.reals.reserve(rows);
      if (field.Stored == columns::Storage::Moment) column.moments.reserve(rows);
      if (field.Stored == columns::Storage::Text) column.texts.reserve(rows);
    }
  }

  void ReadRow(const FlatTable& row) {
    AppendNulls();
    const FlatVector<char> bytes = row.Vector<char>(feature::kProperties);
    Properties properties({bytes.data(), bytes.size()});
    while (!properties.AtEnd()) {
      const auto place = properties.Take<std::uint16_t>();
      if (place >= types_.size()) RefuseTable("a value of no column");
      ReadValue(properties, place);
    }
    for (std::size_t i = 0; i < table_->fields.size(); ++i) {
      if (!table_->fields[i].IsId) continue;
      table_->columns[i].wholes.push_back(table_->ids.back());
    }
    if (row.Has(feature::kGeometry) || table_->shapes.Size() > 0) ReadShape(row);
  }

  void AppendNulls() {
    table_->ids.push_back(0);
    for (std::size_t i = 0; i < table_->fields.size(); ++i) {
      StoredColumn& column = table_->columns[i];
      if (table_->fields[i].IsId) continue;
      column.nulls.push_back(1);
      switch (table_->fields[i].Stored) {
        case columns::Storage::Whole:
          column.wholes.push_back(0);
          break;
        case columns::Storage::Real:
          column.reals.push_back(0);
          break;
        case columns::Storage::Moment:
          column.moments.emplace_back();
          break;
        case columns::Storage::Text:
          column.texts.emplace_back();
          break;
        default:
          break;
      }
    }
  }

  void ReadValue(Properties& properties, std::size_t place) {
    const FileType type = types_[place];
    if (place == 0) {
      table_->ids.back() = properties.TakeWhole(type);
      return;
    }
    StoredColumn& column = table_->columns[places_[place]];
    column.nulls.back() = 0;
    switch (StorageOf(type)) {
      case columns::Storage::Whole:
        column.wholes.back() = properties.TakeWhole(type);
        break;
      case columns::Storage::Real:
        column.reals.back() = type == FileType::Float
                                  ? static_cast<double>(properties.Take<float>())
                                  : properties.Take<double>();
        break;
      case columns::Storage::Moment:
        column.moments.back() = MomentOf(properties.TakeText());
        break;
      case columns::Storage::Text:
        column.texts.back() = properties.TakeText();
        break;
      default:
        properties.TakeText();
    }
  }

  void ReadShape(const FlatTable& row) {
    // Rows before the first shape have none.
    while (table_->shapes.Size() + 1 < table_->ids.size()) table_->shapes.EndShape(ShapeKind::None);
    ShapeKind kind = ShapeKind::None;
    if (row.Has(feature::kGeometry)) kind = AddParts(row.Table(feature::kGeometry), 0);
    table_->shapes.EndShape(kind);
  }

  ShapeKind AddParts(const FlatTable& shape, int depth) {
    constexpr int kDeepest = 8;
    const int type = shape.Scalar<std::uint8_t>(geometry::kType, geometryType_);
    if (type == geometry::kTypePolygons || type == geometry::kTypeCollection) {
      ShapeKind kind = ShapeKind::None;
      const std::uint32_t parts = shape.Vector<std::uint32_t>(geometry::kParts).size();
      for (std::uint32_t i = 0; i < parts && depth < kDeepest; ++i) {
        kind = AddParts(shape.TableAt(geometry::kParts, i), depth + 1);
      }
      return kind;
    }
    AddPoints(shape);
    if (type == geometry::kTypePoint || type == geometry::kTypePoints) return ShapeKind::Points;
    if (type == geometry::kTypeLine || type == geometry::kTypeLines) return ShapeKind::Lines;
    return type == geometry::kTypePolygon ? ShapeKind::Polygons : ShapeKind::None;
  }

  void AddPoints(const FlatTable& shape) {
    const auto xy = shape.Vector<double>(geometry::kXy);
    const auto ends = shape.Vector<std::uint32_t>(geometry::kEnds);
    std::uint32_t part = 0;
    for (std::uint32_t i = 0; i + 1 < xy.size(); i += 2) {
      if (!std::isfinite(xy[i])) return;  // stands for no shape
      table_->shapes.AddPoint(xy[i], xy[i + 1]);
      if (part < ends.size() && i / 2 + 1 == ends[part]) {
        table_->shapes.EndPart();
        ++part;
      }
    }
    if (part == 0 && xy.size() > 1) table_->shapes.EndPart();
  }

  std::shared_ptr<ColumnTable> table_ = std::make_shared<ColumnTable>();
  std::string_view rest_;
  std::vector<FileType> types_;      // by column of the file
  std::uint8_t geometryType_ = 0;    // of shapes that don't say
  std::vector<std::size_t> places_;  // of their fields; the first column is none's
};

}  // namespace

std::shared_ptr<ColumnTable> ReadFlatGeobuf(std::string bytes, std::vector<columns::Field> fields) {
  return Reader(std::move(bytes), std::move(fields)).Read();
}

}  // namespace brelmon::web
