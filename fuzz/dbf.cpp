// SPDX-License-Identifier: GPL-2.0-or-later
// dBASE tables: the header is refused or every record has its values, and two counts agree.
#include <numeric>

#include "frame/guard.h"
#include "fuzz/input.h"
#include "hosts/columns/dbffile.h"
#include "hosts/columns/dbfrecords.h"
#include "hosts/data/shapefileparts.h"

namespace {

using namespace brelmon;

columns::Field FieldOf(const columns::DbfPlace& place) {
  using columns::Storage;
  switch (place.type) {
    case 'N':
      return {"n", FieldType::Double, place.width < 10 ? Storage::Whole : Storage::Real};
    case 'F':
      return {"f", FieldType::Double, Storage::Real};
    case 'D':
      return {"d", FieldType::Date, Storage::Moment};
    default:
      return {"c", FieldType::String, Storage::Text};
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string file = fuzz::OnDisk(".dbf", data, size);
  const std::string damage = data::DamageOfShapefile(file);
  const auto layout = columns::ReadDbfLayout(file);
  const auto count = columns::CountDbfRecords(file);
  if (!layout) return 0;
  fuzz::Demand(count && count->total == layout->records);
  fuzz::Demand(damage.empty() || damage.find("cut short") == std::string::npos);
  columns::DbfSource source{
      *layout, {}, {}, [](auto, auto, auto& column, auto row, auto&) { column.SetNull(row); }};
  for (const auto& place : layout->fields) source.fields.push_back(FieldOf(place));
  std::vector<std::size_t> fields(source.fields.size());
  std::iota(fields.begin(), fields.end(), std::size_t{0});
  const auto rows = columns::ReadDbf(std::make_shared<columns::DbfSource>(source), fields);
  std::int64_t live = 0, length = 0;
  while (const auto batch = rows->Next()) {
    live += static_cast<std::int64_t>(batch->Live.size());
    for (const auto& column : batch->Columns) {
      for (const std::uint32_t row : batch->Live) {
        if (column.IsNull(row) || column.Texts.empty()) continue;
        for (const char unit : column.Texts[row]) length += unit;  // every byte is looked at
      }
    }
  }
  fuzz::Demand(length < std::int64_t{1} << 40);
  fuzz::Demand(live == count->total - count->deleted);
  return 0;
}
