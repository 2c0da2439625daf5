// SPDX-License-Identifier: GPL-2.0-or-later
// Writing under another name, looking at what came of it, renaming.
#include "hosts/common/dbftable.h"

#include <cpl_conv.h>
#include <ogrsf_frmts.h>
#include <unistd.h>

#include <cmath>
#include <filesystem>

#include "hosts/common/dbfcolumns.h"
#include "hosts/common/hostfailure.h"
#include "platform/date.h"

namespace brelmon::host {
namespace {

namespace fs = std::filesystem;

/// GDAL's messages are kept for the failure instead of being printed.
class QuietGdal {
 public:
  QuietGdal() {
    CPLPushErrorHandler(CPLQuietErrorHandler);
    CPLErrorReset();
  }
  ~QuietGdal() { CPLPopErrorHandler(); }
  QuietGdal(const QuietGdal&) = delete;
  QuietGdal& operator=(const QuietGdal&) = delete;
};

/// The table under its passing name. What is left of it when this ends is removed.
class PassingTable {
 public:
  explicit PassingTable(const fs::path& path)
      : path_(path), passing_(path.parent_path() / (path.stem().string() + "~making.dbf")) {}
  ~PassingTable() {
    for (const char* extension : kExtensions) {
      std::error_code ignored;
      fs::remove(With(passing_, extension), ignored);
    }
  }
  PassingTable(const PassingTable&) = delete;
  PassingTable& operator=(const PassingTable&) = delete;

  std::string Name() const { return passing_.string(); }

  /// The table's own file comes last.
  void Publish() {
    if (fs::exists(path_)) Fail(kFileExists, "There is a file " + path_.string() + " already.");
    for (const char* extension : kExtensions) {
      const fs::path from = With(passing_, extension);
      std::error_code error;
      if (fs::exists(from)) fs::rename(from, With(path_, extension), error);
      if (!error) continue;
      std::error_code ignored;
      fs::remove(With(path_, ".cpg"), ignored);
      Fail(failure::kPathFileAccess, error.message());
    }
  }
  static constexpr std::int32_t kFileExists = 58;

 private:
  static constexpr const char* kExtensions[] = {".cpg", ".dbf"};
  fs::path With(const fs::path& table, const char* extension) const {
    if (table == path_ && std::string(extension) == ".dbf") return path_;
    fs::path other = table;
    return other.replace_extension(extension);
  }
  fs::path path_, passing_;
};

[[noreturn]] void FailWriting(const fs::path& folder) {
  const std::string reason = CPLGetLastErrorMsg();
  if (access(folder.c_str(), W_OK) != 0) {
    Fail(failure::kPermissionDenied, "The folder " + folder.string() + " can't be written to.");
  }
  std::error_code ignored;
  const auto space = fs::space(folder, ignored);
  if (!ignored && space.available < 65536) Fail(failure::kDiskFull);
  Fail(failure::kPathFileAccess,
       "The table can't be written" + (reason.empty() ? "." : ": " + reason));
}

OGRFieldType TypeOf(const DbfColumn& column) {
  constexpr int kWidestInteger = 18;
  switch (column.Is) {
    case DbfColumn::Kind::Whole:
      return column.Width <= kWidestInteger ? OFTInteger64 : OFTReal;
    case DbfColumn::Kind::Real:
      return OFTReal;
    case DbfColumn::Kind::Date:
      return OFTDate;
    case DbfColumn::Kind::Text:
      break;
  }
  return OFTString;
}

void CreateColumns(OGRLayer& layer, const std::vector<DbfColumn>& columns, const fs::path& folder) {
  for (const DbfColumn& column : columns) {
    OGRFieldDefn field(column.Name.c_str(), TypeOf(column));
    field.SetWidth(column.Width);
    field.SetPrecision(column.Decimals);
    if (layer.CreateField(&field) != OGRERR_NONE) FailWriting(folder);
  }
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const auto* made = layer.GetLayerDefn()->GetFieldDefn(static_cast<int>(i));
    if (columns[i].Name != made->GetNameRef()) {
      Fail(failure::kOverflow, "dBASE can't hold the column name " + columns[i].Name + ".");
    }
  }
}

void SetValue(OGRFeature& row, int field, const DbfColumn& column, std::size_t record) {
  if (column.Is == DbfColumn::Kind::Text) {
    if (!column.NullTexts[record]) row.SetField(field, column.Texts[record].c_str());
    return;
  }
  const double number = column.Numbers[record];
  if (std::isnan(number)) return;
  if (column.Is == DbfColumn::Kind::Date) {
    const CivilTime day = ToCivil(Date{number});
    row.SetField(field, day.year, day.month, day.day);
  } else if (TypeOf(column) == OFTInteger64) {
    row.SetField(field, static_cast<GIntBig>(number));
  } else {
    row.SetField(field, number);
  }
}

void WriteRecords(OGRLayer& layer, const std::vector<DbfColumn>& columns, std::size_t records,
                  const fs::path& folder) {
  for (std::size_t record = 0; record < records; ++record) {
    const OGRFeatureUniquePtr row(OGRFeature::CreateFeature(layer.GetLayerDefn()));
    for (std::size_t i = 0; i < columns.size(); ++i) {
      SetValue(*row, static_cast<int>(i), columns[i], record);
    }
    // Even a warning tells of a value that was cut.
    if (layer.CreateFeature(row.get()) != OGRERR_NONE || CPLGetLastErrorType() != CE_None) {
      FailWriting(folder);
    }
  }
}

/// Buffers reach the disk when a file is closed, where nobody hears of a failure: what counts is
/// the file's size.
void CheckSize(const std::string& path, const std::vector<DbfColumn>& columns,
               std::size_t records) {
  std::uintmax_t record = 1;
  for (const DbfColumn& column : columns) record += static_cast<std::uintmax_t>(column.Width);
  const std::uintmax_t whole = 33 + 32 * columns.size() + records * record;
  std::error_code error;
  const std::uintmax_t size = fs::file_size(path, error);
  if (error || size < whole) Fail(failure::kDiskFull, "The disk is full: the table wasn't whole.");
}

GDALDriver& Driver() {
  auto* driver = GetGDALDriverManager()->GetDriverByName("ESRI Shapefile");
  if (!driver) {
    GDALAllRegister();
    driver = GetGDALDriverManager()->GetDriverByName("ESRI Shapefile");
  }
  if (!driver) Fail(failure::kNotSupported, "GDAL has no driver for dBASE tables.");
  return *driver;
}

}  // namespace

void WriteDbfTable(const std::string& path, const std::string& encoding,
                   std::vector<DbfColumn> columns, std::size_t records) {
  const fs::path folder = fs::path(path).parent_path();
  if (!fs::is_directory(folder)) {
    Fail(failure::kPathNotFound, "There is no folder " + folder.string() + ".");
  }
  if (fs::exists(path)) {
    Fail(PassingTable::kFileExists, "There is a file " + path + " already.");
  }
  for (DbfColumn& column : columns) FitColumn(column, encoding);
  const QuietGdal quiet;
  PassingTable passing(path);
  {
    GDALDatasetUniquePtr table(
        Driver().Create(passing.Name().c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    if (!table) FailWriting(folder);
    const char* options[] = {nullptr, nullptr};
    const std::string encoded = "ENCODING=" + encoding;
    options[0] = encoded.c_str();
    OGRLayer* layer = table->CreateLayer(fs::path(passing.Name()).stem().c_str(), nullptr, wkbNone,
                                         const_cast<char**>(options));
    if (!layer) FailWriting(folder);
    CreateColumns(*layer, columns, folder);
    CPLErrorReset();
    WriteRecords(*layer, columns, records, folder);
  }
  CheckSize(passing.Name(), columns, records);
  passing.Publish();
}

}  // namespace brelmon::host
