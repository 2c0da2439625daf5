// SPDX-License-Identifier: GPL-2.0-or-later
// The header's 32 bytes, 32 more for each field, and records of one length, read in large blocks.
#include "hosts/columns/dbffile.h"

#include <array>
#include <filesystem>
#include <fstream>

#include "hosts/columns/dbfcells.h"
#include "hosts/common/hostfailure.h"

namespace brelmon::columns {
namespace {

constexpr std::size_t kHead = 32, kBlock = std::size_t{1} << 18;
constexpr char kEndOfFields = '\r', kDeleted = '*';

std::size_t Little(const char* bytes, int count) {
  std::size_t number = 0;
  for (int i = count - 1; i >= 0; --i) number = number * 256 + static_cast<unsigned char>(bytes[i]);
  return number;
}

/// A batch with the bytes that its texts point to.
struct DbfBatch : Batch {
  std::vector<char> block;
  std::vector<ColumnBuffer> buffers;
  TextRoom texts;
};

class DbfReader : public IBatchReader {
 public:
  DbfReader(std::shared_ptr<const DbfSource> source, std::vector<std::size_t> fields)
      : source_(std::move(source)),
        fields_(std::move(fields)),
        file_(source_->layout.path, std::ios::binary),
        perBlock_(std::max<std::size_t>(kBlock / source_->layout.recordLength, 1)) {
    file_.seekg(static_cast<std::streamoff>(source_->layout.headerLength));
  }

  std::shared_ptr<Batch> Next() override {
    const DbfLayout& layout = source_->layout;
    if (next_ >= layout.records) return nullptr;
    if (!batch_ || batch_.use_count() > 1) batch_ = std::make_shared<DbfBatch>();
    const auto left = static_cast<std::size_t>(layout.records - next_);
    ReadBlock(std::min(left, perBlock_));
    for (const std::size_t field : fields_) Fill(field);
    next_ += static_cast<std::int64_t>(batch_->Rows);
    return batch_;
  }

 private:
  void ReadBlock(std::size_t rows) {
    const std::size_t length = source_->layout.recordLength;
    DbfBatch& batch = *batch_;
    batch.block.resize(rows * length);
    if (!file_.read(batch.block.data(), static_cast<std::streamsize>(batch.block.size()))) {
      host::Fail(failure::kDeviceIo, "The file can't be read: " + source_->layout.path);
    }
    batch.Rows = rows;
    batch.Ids.resize(rows);
    batch.Live.clear();
    batch.texts.Clear();
    for (std::size_t row = 0; row < rows; ++row) {
      batch.Ids[row] = next_ + static_cast<std::int64_t>(row);
      if (batch.block[row * length] == kDeleted) continue;
      batch.Live.push_back(static_cast<std::uint32_t>(row));
    }
    batch.Columns.assign(source_->fields.size(), {});
    batch.buffers.resize(source_->fields.size());
  }

  void Fill(std::size_t field) {
    const DbfPlace& place = source_->layout.fields[field];
    const Storage stored = source_->fields[field].Stored;
    ColumnBuffer& column = batch_->buffers[field];
    column.Start(stored, batch_->Rows);
    const auto cells = [&](const auto& read) {
      const char* at = batch_->block.data() + place.offset;
      for (std::size_t row = 0; row < batch_->Rows; ++row, at += source_->layout.recordLength) {
        switch (read(std::string_view(at, place.width), row)) {
          case DbfCell::Value:
            break;
          case DbfCell::Null:
            column.SetNull(row);
            break;
          case DbfCell::Odd:
            ReadOdd(field, row);
        }
      }
    };
    if (stored == Storage::Whole) {
      cells([&](auto bytes, auto row) { return WholeCell(bytes, column.Wholes[row]); });
    } else if (stored == Storage::Real) {
      cells([&](auto bytes, auto row) { return RealCell(bytes, column.Reals[row]); });
    } else if (stored == Storage::Moment && place.type == 'D') {
      cells([&](auto bytes, auto row) { return DateCell(bytes, column.Moments[row]); });
    } else if (stored == Storage::Text && place.type == 'C') {
      cells([&](auto bytes, auto row) { return Recoded(bytes, column.Texts[row]); });
    } else {
      cells([](auto, auto) { return DbfCell::Odd; });
    }
    batch_->Columns[field] = column.View();
  }

  DbfCell Recoded(std::string_view bytes, std::string_view& text) {
    const DbfCell cell = TextCell(bytes, text);
    if (cell != DbfCell::Value || source_->page.IsUtf8() || IsAscii(text)) return cell;
    recoded_.clear();
    if (!source_->page.ToUtf8(text, recoded_)) return DbfCell::Odd;
    text = batch_->texts.Put(recoded_);
    return cell;
  }

  /// A deleted record has no values that anybody asks for.
  void ReadOdd(std::size_t field, std::size_t row) {
    ColumnBuffer& column = batch_->buffers[field];
    if (batch_->block[row * source_->layout.recordLength] == kDeleted) return column.SetNull(row);
    source_->odd(batch_->Ids[row], field, column, row, batch_->texts);
  }

  std::shared_ptr<const DbfSource> source_;
  std::vector<std::size_t> fields_;
  std::ifstream file_;
  std::size_t perBlock_;
  std::int64_t next_ = 0;
  std::shared_ptr<DbfBatch> batch_;
  std::string recoded_;
};

}  // namespace

std::optional<DbfLayout> ReadDbfLayout(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::array<char, kHead> head{};
  if (!file.read(head.data(), kHead)) return {};
  DbfLayout layout{path,
                   static_cast<std::int64_t>(Little(&head[4], 4)),
                   Little(&head[8], 2),
                   Little(&head[10], 2),
                   {}};
  std::size_t offset = 1;
  while (file.read(head.data(), 1) && head[0] != kEndOfFields) {
    if (!file.read(&head[1], kHead - 1)) return {};
    layout.fields.push_back({head[11], offset, Little(&head[16], 1)});
    offset += layout.fields.back().width;
  }
  const std::size_t described = kHead * (layout.fields.size() + 1);
  std::error_code error;
  const auto size = std::filesystem::file_size(path, error);
  const bool agrees = file && !error && offset == layout.recordLength &&
                      layout.headerLength > described &&
                      size >= layout.headerLength +
                                  static_cast<std::uintmax_t>(layout.records) * layout.recordLength;
  if (!agrees) return {};
  return layout;
}

std::unique_ptr<IBatchReader> ReadDbf(std::shared_ptr<const DbfSource> source,
                                      std::vector<std::size_t> fields) {
  return std::make_unique<DbfReader>(std::move(source), std::move(fields));
}

}  // namespace brelmon::columns
