// SPDX-License-Identifier: GPL-2.0-or-later
// Eleven bytes of signature, then rows: a count of values, and each behind its length.
#include "hosts/servers/copyreader.h"

#include <bit>
#include <limits>

#include "hosts/common/hostfailure.h"

namespace brelmon::servers {
namespace {

using columns::Batch, columns::ColumnBuffer, columns::Storage;

constexpr std::size_t kRows = 4096;
constexpr std::int64_t kMicrosADay = 86'400'000'000;
constexpr std::int64_t kEndOfDays = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t kEndOfMoments = std::numeric_limits<std::int64_t>::max();

[[noreturn]] void Unexpected() {
  host::Fail(failure::kDeviceIo, "The server sent its rows in a form that isn't known.");
}

std::uint64_t Bits(std::string_view bytes) {
  std::uint64_t bits = 0;
  for (const char byte : bytes) bits = bits << 8 | static_cast<unsigned char>(byte);
  return bits;
}

std::string_view Sized(std::string_view bytes, std::size_t size) {
  if (bytes.size() != size) Unexpected();
  return bytes;
}

/// The calendar of days since 1 January 2000 (Richards 2013: eras of 400 years from March on).
void SetDay(std::int64_t days, columns::Moment& moment, std::int64_t& year) {
  const std::int64_t z = days + 730'425;  // since 1 March of the year 0
  const std::int64_t era = (z >= 0 ? z : z - 146'096) / 146'097;
  const std::int64_t day = z - era * 146'097;
  const std::int64_t yearOfEra = (day - day / 1460 + day / 36'524 - day / 146'096) / 365;
  const std::int64_t dayOfYear = day - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const std::int64_t month = (5 * dayOfYear + 2) / 153;
  moment.Day = static_cast<std::uint8_t>(dayOfYear - (153 * month + 2) / 5 + 1);
  moment.Month = static_cast<std::uint8_t>(month < 10 ? month + 3 : month - 9);
  year = yearOfEra + era * 400 + (moment.Month <= 2 ? 1 : 0);
}

struct CopyBatch : Batch {
  std::vector<ColumnBuffer> buffers;
  columns::TextRoom texts;
};

class CopyRows : public columns::IBatchReader {
 public:
  CopyRows(std::unique_ptr<Transaction> server, std::shared_ptr<const TableFacts> facts,
           std::vector<std::size_t> fields, bool withIds)
      : server_(std::move(server)),
        facts_(std::move(facts)),
        fields_(std::move(fields)),
        withIds_(withIds),
        stream_(*server_) {}

  std::shared_ptr<Batch> Next() override {
    if (!server_) return nullptr;
    Start();
    Batch& batch = *batch_;
    const int columns = static_cast<int>(fields_.size()) + (withIds_ ? 1 : 0);
    while (batch.Rows < kRows && stream_.NextRow(columns)) {
      const std::size_t row = batch.Rows++;
      for (const std::size_t field : fields_) {
        TakeValue(facts_->Columns[field].Travels, stream_.NextValue(), batch_->buffers[field], row,
                  batch_->texts);
      }
      if (withIds_) TakeId(row);
      batch.Live.push_back(static_cast<std::uint32_t>(row));
    }
    if (batch.Rows < kRows) server_.reset();
    if (batch.Rows == 0) return nullptr;
    for (const std::size_t field : fields_) batch.Columns[field] = batch_->buffers[field].View();
    return batch_;
  }

 private:
  void Start() {
    if (!batch_ || batch_.use_count() > 1) batch_ = std::make_shared<CopyBatch>();
    batch_->Rows = 0;
    if (withIds_) batch_->Ids.resize(kRows);
    batch_->Live.clear();
    batch_->texts.Clear();
    batch_->Columns.assign(facts_->Fields.size(), {});
    batch_->buffers.resize(facts_->Fields.size());
    for (const std::size_t field : fields_) {
      batch_->buffers[field].Start(facts_->Fields[field].Stored, kRows);
    }
  }
  void TakeId(std::size_t row) {
    const auto id = stream_.NextValue();
    if (!id) host::Fail(failure::kDeviceIo, "A row has no value in the key of its table.");
    batch_->Ids[row] = WholeOf(Wire::Whole64, *id);
  }

  std::unique_ptr<Transaction> server_;  // null at the end
  std::shared_ptr<const TableFacts> facts_;
  std::vector<std::size_t> fields_;
  bool withIds_;
  CopyStream stream_;
  std::shared_ptr<CopyBatch> batch_;
};

}  // namespace

bool CopyStream::NextRow(int columns) {
  while (!ended_ && piece_.empty()) {
    const auto next = server_.NextPiece();
    ended_ = !next;
    if (next) piece_ = *next;
    if (next && !begun_) SkipHead();
  }
  if (ended_) return false;
  const auto count = TakeWhole<std::int16_t>();
  if (count == columns) return true;
  if (count != -1) Unexpected();
  // The last piece; the server has a word more to say.
  if (server_.NextPiece()) Unexpected();
  ended_ = true;
  return false;
}

void CopyStream::SkipHead() {
  constexpr std::string_view kSignature("PGCOPY\n\377\r\n\0", 11);
  if (Take(kSignature.size()) != kSignature) Unexpected();
  TakeWhole<std::int32_t>();
  Take(static_cast<std::size_t>(TakeWhole<std::int32_t>()));
  begun_ = true;
}

std::optional<std::string_view> CopyStream::NextValue() {
  const auto size = TakeWhole<std::int32_t>();
  if (size < 0) return {};
  return Take(static_cast<std::size_t>(size));
}

std::string_view CopyStream::Take(std::size_t size) {
  if (piece_.size() < size) Unexpected();
  const std::string_view taken = piece_.substr(0, size);
  piece_.remove_prefix(size);
  return taken;
}

template <class Whole>
Whole CopyStream::TakeWhole() {
  return static_cast<Whole>(Bits(Take(sizeof(Whole))));
}

std::int64_t WholeOf(Wire wire, std::string_view bytes) {
  switch (wire) {
    case Wire::Truth:
      return static_cast<std::int64_t>(Bits(Sized(bytes, 1)));
    case Wire::Whole16:
      return static_cast<std::int16_t>(Bits(Sized(bytes, 2)));
    case Wire::Whole32:
      return static_cast<std::int32_t>(Bits(Sized(bytes, 4)));
    default:
      return static_cast<std::int64_t>(Bits(Sized(bytes, 8)));
  }
}

double RealOf(Wire wire, std::string_view bytes) {
  if (wire == Wire::Real64) return std::bit_cast<double>(Bits(Sized(bytes, 8)));
  return static_cast<double>(
      std::bit_cast<float>(static_cast<std::uint32_t>(Bits(Sized(bytes, 4)))));
}

bool MomentOf(Wire wire, std::string_view bytes, columns::Moment& moment) {
  const bool dayAlone = wire == Wire::Day;
  const std::int64_t count = WholeOf(dayAlone ? Wire::Whole32 : Wire::Whole64, bytes);
  const std::int64_t end = dayAlone ? kEndOfDays : kEndOfMoments;
  if (count == end || count == -end - 1) return false;
  moment = {};
  std::int64_t days = count, year = 0;
  if (!dayAlone) {
    days = count / kMicrosADay - (count % kMicrosADay < 0 ? 1 : 0);
    const std::int64_t micros = count - days * kMicrosADay;
    const std::int64_t seconds = micros / 1'000'000;
    moment.Hour = static_cast<std::uint8_t>(seconds / 3600);
    moment.Minute = static_cast<std::uint8_t>(seconds / 60 % 60);
    moment.Second = static_cast<float>(static_cast<double>(micros % 60'000'000) / 1e6);
  }
  SetDay(days, moment, year);
  moment.Year = static_cast<std::int16_t>(year);
  return year >= 100 && year <= 9999;
}

void TakeValue(Wire wire, std::optional<std::string_view> bytes, ColumnBuffer& column,
               std::size_t row, columns::TextRoom& texts) {
  if (!bytes) {
    column.SetNull(row);
    return;
  }
  switch (wire) {
    case Wire::Truth:
    case Wire::Whole16:
    case Wire::Whole32:
    case Wire::Whole64:
      column.Wholes[row] = WholeOf(wire, *bytes);
      return;
    case Wire::Real32:
    case Wire::Real64:
      column.Reals[row] = RealOf(wire, *bytes);
      return;
    case Wire::Day:
    case Wire::Moment:
      if (!MomentOf(wire, *bytes, column.Moments[row])) column.SetNull(row);
      return;
    default:
      column.Texts[row] = texts.Put(*bytes);
  }
}

std::unique_ptr<columns::IBatchReader> ReadCopy(std::unique_ptr<Transaction> server,
                                                std::shared_ptr<const TableFacts> facts,
                                                std::vector<std::size_t> fields, bool withIds) {
  return std::make_unique<CopyRows>(std::move(server), std::move(facts), std::move(fields),
                                    withIds);
}

}  // namespace brelmon::servers
