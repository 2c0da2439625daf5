// SPDX-License-Identifier: GPL-2.0-or-later
// Classes of symbols by value, filters and selections as states of shapes.
#include "hosts/web/layerview.h"

#include <unordered_map>

#include "hosts/columns/values.h"

namespace brelmon::web {
namespace {

using States = std::vector<std::uint16_t>;

/// Gives the number of the class that a row's value belongs to.
class Classes {
 public:
  Classes(const Symbols& symbols, const columns::Field& field) : symbols_(symbols), field_(field) {
    for (std::size_t i = 0; i < symbols.classes.size(); ++i) {
      const SymbolClass& one = symbols.classes[i];
      const auto state = static_cast<std::uint16_t>(one.visible ? i : kHiddenShape);
      if (one.other) {
        other_ = state;
      } else {
        byValue_.try_emplace(one.value, state);
      }
    }
  }
  std::uint16_t Of(const columns::Column& column, std::size_t row) {
    if (column.IsNull(row)) return other_;
    if (symbols_.type == Symbols::Type::Graduated) return OfNumber(column, row);
    if (!column.Texts.empty()) return OfText(std::string(column.Texts[row]));
    return OfText(ToUtf8(columns::ValueAt(column, field_, row).ToText(0)));
  }

 private:
  std::uint16_t OfText(const std::string& text) const {
    const auto hit = byValue_.find(text);
    return hit == byValue_.end() ? other_ : hit->second;
  }
  std::uint16_t OfNumber(const columns::Column& column, std::size_t row) const {
    double number = 0;
    if (!column.Reals.empty()) {
      number = column.Reals[row];
    } else if (!column.Wholes.empty()) {
      number = static_cast<double>(column.Wholes[row]);
    } else {
      return kHiddenShape;
    }
    for (std::size_t i = 0; i < symbols_.classes.size(); ++i) {
      const SymbolClass& one = symbols_.classes[i];
      if (number < one.from || number > one.to) continue;
      return static_cast<std::uint16_t>(one.visible ? i : kHiddenShape);
    }
    return kHiddenShape;
  }

  const Symbols& symbols_;
  const columns::Field& field_;
  std::unordered_map<std::string, std::uint16_t> byValue_;
  std::uint16_t other_ = kHiddenShape;
};

void ShowRows(ITableItem& layer, Source& source, States& states) {
  const Symbols& symbols = layer.Facts().symbols;
  const std::int32_t field = symbols.type == Symbols::Type::Simple
                                 ? -1
                                 : columns::FindField(source.Fields(), FromUtf8(symbols.field));
  columns::RowRequest request;
  request.Clause = layer.Definition();
  std::optional<Classes> classes;
  const auto at = static_cast<std::size_t>(field);
  if (field >= 0) {
    request.Fields = {at};
    classes.emplace(symbols, source.Fields()[at]);
  }
  const auto rows = source.Read(request);
  std::size_t first = 0;
  while (const auto batch = rows->Next()) {
    for (const std::uint32_t row : batch->Live) {
      if (first + row >= states.size()) break;
      states[first + row] = classes ? classes->Of(batch->Columns[at], row) : std::uint16_t{0};
    }
    first += batch->Rows;
  }
}

template <class T>
void PutArray(Json& json, const char* key, const std::vector<T>& values) {
  json.Key(key)
      .BeginArray()
      .Add(reinterpret_cast<std::size_t>(values.data()))
      .Add(values.size())
      .EndArray();
}

}  // namespace

void DescribeShapes(ITableItem& layer, Json& json) {
  static std::unordered_map<int, States> kept;
  static const ShapeStore none;
  Source* source = layer.Data().get();
  const bool reached = source != nullptr && source->Valid();
  const ShapeStore& shapes = reached ? source->Table().shapes : none;
  States& states = kept[layer.Id()];
  states.assign(shapes.Size(), kHiddenShape);
  if (reached && !states.empty()) {
    try {
      ShowRows(layer, *source, states);
    } catch (const Failure&) {
      // A definition that the source refuses shows nothing.
    }
    for (const std::int64_t id : layer.Selected()) {
      const std::size_t row = source->PlaceOf(id);
      if (row < states.size()) states[row] |= kSelectedShape;
    }
  }
  PutArray(json, "xy", shapes.xy);
  PutArray(json, "partEnds", shapes.partEnds);
  PutArray(json, "shapeEnds", shapes.shapeEnds);
  PutArray(json, "kinds", shapes.kinds);
  PutArray(json, "states", states);
  json.Put("revision", std::int32_t{layer.Revision()});
}

}  // namespace brelmon::web
