// SPDX-License-Identifier: GPL-2.0-or-later
// A dBASE file of the page's own as a table in memory.
#include <array>
#include <filesystem>
#include <fstream>

#include "hosts/columns/dbffile.h"
#include "hosts/common/hostfailure.h"
#include "hosts/common/paths.h"
#include "hosts/web/source.h"

namespace brelmon::web {
namespace {

constexpr std::size_t kDescription = 32;  // bytes of the head and of each field

/// Numbers without decimals are whole: up to nine digits in 32 bits, up to eighteen as doubles.
columns::Field FieldOf(const std::array<char, kDescription>& bytes) {
  columns::Field field;
  field.Name = std::string(bytes.data(), 11).c_str();
  field.Width = static_cast<unsigned char>(bytes[16]);
  field.Decimals = static_cast<unsigned char>(bytes[17]);
  constexpr int kDigitsOfLong = 9, kDigitsOfWhole = 18;
  switch (bytes[11]) {
    case 'N':
    case 'F':
      field.Stored = field.Decimals == 0 && field.Width <= kDigitsOfWhole ? columns::Storage::Whole
                                                                          : columns::Storage::Real;
      field.Type = field.Stored == columns::Storage::Whole && field.Width <= kDigitsOfLong
                       ? FieldType::Integer
                       : FieldType::Double;
      break;
    case 'D':
      field.Stored = columns::Storage::Moment;
      field.Type = FieldType::Date;
      field.TimeOfDay = false;
      break;
    default:
      break;
  }
  return field;
}

std::vector<columns::Field> FieldsOf(const columns::DbfLayout& layout) {
  std::ifstream file(layout.path, std::ios::binary);
  std::array<char, kDescription> bytes{};
  file.read(bytes.data(), kDescription);
  std::vector<columns::Field> fields;
  while (fields.size() < layout.fields.size() && file.read(bytes.data(), kDescription)) {
    fields.push_back(FieldOf(bytes));
  }
  return fields;
}

/// Copies what a batch has of a column; texts go to `texts`, to be found by their lengths.
void Append(const columns::Column& from, std::size_t row, StoredColumn& to, std::string& texts,
            std::vector<std::size_t>& lengths) {
  to.nulls.push_back(from.IsNull(row) ? 1 : 0);
  if (!from.Wholes.empty()) to.wholes.push_back(from.Wholes[row]);
  if (!from.Reals.empty()) to.reals.push_back(from.Reals[row]);
  if (!from.Moments.empty()) to.moments.push_back(from.Moments[row]);
  if (from.Texts.empty()) return;
  const std::string_view text = from.IsNull(row) ? std::string_view() : from.Texts[row];
  texts += text;
  lengths.push_back(text.size());
}

std::shared_ptr<ColumnTable> TableOf(std::shared_ptr<columns::DbfSource> source) {
  auto table = std::make_shared<ColumnTable>();
  table->fields = source->fields;
  table->columns.resize(table->fields.size());
  std::vector<std::size_t> all(table->fields.size());
  for (std::size_t i = 0; i < all.size(); ++i) all[i] = i;
  std::vector<std::string> texts(all.size());
  std::vector<std::vector<std::size_t>> lengths(all.size());
  const auto rows = columns::ReadDbf(source, all);
  while (const auto batch = rows->Next()) {
    for (const std::uint32_t row : batch->Live) {
      table->ids.push_back(batch->Ids[row]);
      for (const std::size_t i : all) {
        Append(batch->Columns[i], row, table->columns[i], texts[i], lengths[i]);
      }
    }
  }
  std::size_t at = 0;
  for (const std::string& text : texts) table->bytes += text;
  for (const std::size_t i : all) {
    for (const std::size_t length : lengths[i]) {
      table->columns[i].texts.push_back(std::string_view(table->bytes).substr(at, length));
      at += length;
    }
  }
  return table;
}

columns::CodePage PageBeside(const std::string& systemPath, const Sources& sources) {
  std::ifstream file(std::filesystem::path(systemPath).replace_extension(".cpg"));
  std::string name;
  file >> name;
  for (const auto& [id, source] : sources) {
    if (source->Encoding().Name() == name) return source->Encoding();
  }
  return {};
}

}  // namespace

std::shared_ptr<Source> SourceOfDbf(const std::string& systemPath, const Sources& sources) {
  auto dbf = std::make_shared<columns::DbfSource>();
  const auto layout = columns::ReadDbfLayout(systemPath);
  if (!layout) host::Fail(failure::kFileNotFound, "The table can't be read: " + systemPath);
  dbf->layout = *layout;
  dbf->fields = FieldsOf(*layout);
  dbf->page = PageBeside(systemPath, sources);
  dbf->odd = [](std::int64_t, std::size_t, columns::ColumnBuffer& column, std::size_t row,
                columns::TextRoom&) { column.SetNull(row); };
  const std::filesystem::path path(systemPath);
  SourceFacts facts;
  facts.kind = "Shapefile";
  facts.path = ToUtf8(host::Paths().ToWindows(systemPath));
  facts.workspace = ToUtf8(host::Paths().ToWindows(path.parent_path().string()));
  facts.table = path.stem().string();
  facts.fields = dbf->fields;
  facts.encoding = dbf->page;
  auto source = std::make_shared<Source>(std::move(facts));
  source->Fill(TableOf(std::move(dbf)));
  return source;
}

}  // namespace brelmon::web
