// SPDX-License-Identifier: GPL-2.0-or-later
// A server adds doubles one after the other and loses what falls behind the last digit. So each
// value is sent to its sums in two parts: a multiple of a grain so coarse that the sum of these is
// exact, and the rest, which is too small for its losses to matter. The grain is guessed, and
// chosen anew from extremes and counts where the guess was none. Spreads come from the server's own
// running squares, which are sound as long as the values don't lie far from zero beside how far
// they spread; else they are asked for once more, shifted.
#include "hosts/servers/grouping.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "hosts/columns/values.h"
#include "hosts/servers/complaint.h"
#include "hosts/servers/copyreader.h"

namespace brelmon::servers {
namespace {

using columns::NumberTally, columns::Storage, columns::TalliedField, columns::TextTally;

constexpr double kFirstGrain = 0x1p-20;
/// Mean by spread up to which squares of deviations are trusted.
constexpr double kFarFromZero = 1000;

std::string Literal(double number) {
  char text[40];
  std::snprintf(text, sizeof text, "'%.17g'::float8", number);
  return text;
}

/// One field's part of the query, and what is made of the answer.
class FieldTerms {
 public:
  FieldTerms(const TableFacts& facts, const TalliedField& field, bool isKey)
      : field_(field),
        column_(facts.Columns[field.Field]),
        isText_(facts.Fields[field.Field].Type == FieldType::String),
        isMoment_(facts.Fields[field.Field].Stored == Storage::Moment),
        isReal_(facts.Fields[field.Field].Stored == Storage::Real),
        fromKey_(isKey && !field.Sum && !field.Spread) {
    value_ = column_.Select;
    if (column_.Travels == Wire::Real32) value_ += "::float8";
    if (column_.Travels == Wire::Truth) value_ += "::int4";
    extreme_ = isMoment_ ? Wire::Moment : isReal_ ? Wire::Real64 : Wire::Whole64;
  }

  bool IsText() const { return isText_; }
  const TalliedField& Field() const { return field_; }

  int Columns() const {
    if (fromKey_) return 0;
    return isText_ ? 2 : 3 + (field_.Sum ? 2 : 0) + (field_.Spread ? 2 : 0);
  }

  void Append(std::string& select) const {
    if (fromKey_) return;
    if (isText_) {
      const std::string byCode = "((" + value_ + ") COLLATE \"C\")";
      select += ", min" + byCode + ", max" + byCode;
      return;
    }
    const std::string finite = isMoment_ ? " FILTER (WHERE isfinite(" + value_ + "))" : "";
    const std::string cast = isMoment_ ? "::timestamp" : isReal_ ? "" : "::int8";
    select += ", count(" + value_ + ")" + finite + ", min(" + value_ + ")" + finite + cast +
              ", max(" + value_ + ")" + finite + cast;
    if (field_.Sum) AppendSum(select);
    if (field_.Spread) AppendSpread(select);
  }

  /// Takes the answer for one group. False where nothing can be made of it.
  bool Take(CopyStream& rows, NumberTally& tally) {
    const auto count = rows.NextValue();
    tally.Count = count ? WholeOf(Wire::Whole64, *count) : 0;
    const bool least = TakeNumber(rows, tally.Minimum), most = TakeNumber(rows, tally.Maximum);
    double sum = 0, rest = 0, shiftedMean = 0, variance = 0;
    if (field_.Sum) {
      TakeReal(rows, sum);
      TakeReal(rows, rest);
    }
    if (field_.Spread) {
      TakeReal(rows, shiftedMean);
      TakeReal(rows, variance);
    }
    if (tally.Count == 0) return true;
    // Infinities and what is no number are reckoned with here.
    if (!least || !most || !std::isfinite(tally.Minimum) || !std::isfinite(tally.Maximum))
      return false;
    // Before the day from which serials count, later times of a day have smaller ones.
    if (isMoment_ && tally.Minimum < 0) return false;
    tally.SetSum(sum, rest);
    tally.Mean = shiftedMean + shift_;
    // One value throughout spreads by nothing, not by what its mean was rounded by.
    const bool spread = tally.Count > 1 && tally.Minimum < tally.Maximum;
    tally.Squares = spread ? variance * static_cast<double>(tally.Count - 1) : 0;
    Judge(tally, rest, shiftedMean, variance);
    return std::isfinite(needed_);
  }
  void TakeText(CopyStream& rows, TextTally& tally) {
    const auto least = rows.NextValue();
    if (least) tally.Minimum = *least;
    const auto greatest = rows.NextValue();
    if (greatest) tally.Maximum = *greatest;
    tally.Any = least && greatest;
  }

  /// Of a field whose groups are its own values.
  bool IsFromKey() const { return fromKey_; }

  bool IsSure() const { return sure_; }
  /// Another grain and another zero, from what the first answer told.
  void Refine() {
    grain_ = needed_ > 0 ? std::exp2(std::ceil(std::log2(needed_)) - 51) : kFirstGrain;
    shift_ = rows_ > 0 ? total_ / rows_ : 0;
    needed_ = total_ = rows_ = 0;
    sure_ = true;
  }

 private:
  void AppendSum(std::string& select) const {
    if (column_.IsExact || column_.Travels == Wire::Truth) {
      select += ", sum(" + value_ + ")::float8, 0::float8";
      return;
    }
    const std::string much = Literal(1.5 * 0x1p52 * grain_);
    const std::string coarse = "((" + value_ + " + " + much + ") - " + much + ")";
    select += ", sum(" + coarse + "), sum(" + value_ + " - " + coarse + ")";
  }
  void AppendSpread(std::string& select) const {
    const bool exact = column_.Travels == Wire::Whole16 || column_.Travels == Wire::Whole32 ||
                       column_.Travels == Wire::Truth;
    const std::string value = isReal_ || exact ? value_ : value_ + "::float8";
    const std::string shifted =
        shift_ == 0 || exact ? value : "(" + value + " - " + Literal(shift_) + ")";
    select += ", avg(" + shifted + ")::float8, var_samp(" + shifted + ")::float8";
  }

  void Judge(const NumberTally& tally, double rest, double shiftedMean, double variance) {
    const auto count = static_cast<double>(tally.Count);
    const double most = std::max(std::abs(tally.Minimum), std::abs(tally.Maximum));
    needed_ = std::max(needed_, count * most);
    total_ += tally.Mean * count;
    rows_ += count;
    const bool exactly = column_.IsExact || column_.Travels == Wire::Truth;
    if (field_.Sum && !exactly) {
      // What may be lost of the rests, however they lie, beside the sum.
      const double lost = rest == 0 ? 0 : count * count * 0x1p-54 * grain_;
      if (count * most > grain_ * 0x1p51 || lost > std::abs(tally.Sum()) * 0x1p-41) sure_ = false;
    }
    const bool wholes = column_.Travels != Wire::Whole64 && exactly;
    if (field_.Spread && !wholes && tally.Count > 1 && tally.Minimum < tally.Maximum &&
        std::abs(shiftedMean) > kFarFromZero * std::sqrt(variance)) {
      sure_ = false;
    }
  }

  bool TakeNumber(CopyStream& rows, double& number) const {
    const auto bytes = rows.NextValue();
    if (!bytes) return false;
    if (!isMoment_) {
      number =
          isReal_ ? RealOf(extreme_, *bytes) + 0.0 : static_cast<double>(WholeOf(extreme_, *bytes));
      return true;
    }
    columns::Moment moment;
    if (!MomentOf(extreme_, *bytes, moment)) return false;
    number = columns::DateOf(moment).Serial;
    return true;
  }
  static void TakeReal(CopyStream& rows, double& number) {
    if (const auto bytes = rows.NextValue()) number = RealOf(Wire::Real64, *bytes);
  }

  TalliedField field_;
  ColumnFacts column_;
  bool isText_, isMoment_, isReal_, fromKey_;
  Wire extreme_ = Wire::Real64;
  std::string value_;
  double grain_ = kFirstGrain, shift_ = 0;
  double needed_ = 0, total_ = 0, rows_ = 0;
  bool sure_ = true;
};

/// A group whose key is one of the values that are told.
void TallyKey(const columns::ColumnBuffer& keys, std::size_t row, std::int64_t records,
              const FieldTerms& field, columns::GroupTallies& made) {
  if (keys.Nulls[row] != 0) return;
  if (field.IsText()) {
    TextTally& tally = made.Texts.back();
    tally.Any = true;
    tally.Minimum = tally.Maximum = keys.Texts[row];
    return;
  }
  NumberTally& tally = made.Numbers.back();
  tally.Count = records;
  tally.Minimum = !keys.Reals.empty()    ? keys.Reals[row] + 0.0
                  : !keys.Wholes.empty() ? static_cast<double>(keys.Wholes[row])
                                         : columns::DateOf(keys.Moments[row]).Serial;
  tally.Maximum = tally.Minimum;
  if (std::isnan(tally.Minimum)) tally = {};
}

/// What came of all groups.
struct Gathered {
  columns::Batch batch;
  columns::ColumnBuffer keys;
  columns::TextRoom texts;
  columns::GroupTallies tallies;
};

class Grouping {
 public:
  Grouping(const TableFacts& facts, std::size_t key, const std::vector<TalliedField>& fields)
      : facts_(facts), key_(key) {
    for (const TalliedField& field : fields) terms_.emplace_back(facts, field, field.Field == key);
  }

  std::string Select() const {
    std::string select = facts_.Columns[key_].GroupBy + ", count(*)";
    for (const FieldTerms& field : terms_) field.Append(select);
    return select;
  }
  int Columns() const {
    int columns = 2;
    for (const FieldTerms& field : terms_) columns += field.Columns();
    return columns;
  }

  /// False where the rows have to be looked at here.
  bool Take(CopyStream& rows, Gathered& gathered) {
    const Storage stored = facts_.Fields[key_].Stored;
    std::size_t row = 0, room = 0;
    for (; rows.NextRow(Columns()); ++row) {
      if (row == room) {
        room = std::max<std::size_t>(room * 2, 1024);
        Grow(gathered.keys, stored, room);
      }
      TakeValue(facts_.Columns[key_].Travels, rows.NextValue(), gathered.keys, row, gathered.texts);
      const auto records = rows.NextValue();
      gathered.tallies.Records.push_back(records ? WholeOf(Wire::Whole64, *records) : 0);
      for (FieldTerms& field : terms_) {
        if (!TakeField(rows, row, field, gathered)) return false;
      }
      gathered.batch.Live.push_back(static_cast<std::uint32_t>(row));
    }
    gathered.batch.Rows = row;
    gathered.batch.Columns.resize(facts_.Fields.size());
    gathered.batch.Columns[key_] = gathered.keys.View();
    return true;
  }

  bool IsSure() const {
    return std::all_of(terms_.begin(), terms_.end(), [](auto& field) { return field.IsSure(); });
  }
  void Refine() {
    for (FieldTerms& field : terms_) field.Refine();
  }

 private:
  static void Grow(columns::ColumnBuffer& keys, Storage stored, std::size_t rows) {
    keys.Nulls.resize(rows, 0);
    if (stored == Storage::Whole) keys.Wholes.resize(rows);
    if (stored == Storage::Real) keys.Reals.resize(rows);
    if (stored == Storage::Moment) keys.Moments.resize(rows);
    if (stored == Storage::Text || stored == Storage::Other) keys.Texts.resize(rows);
  }
  static bool TakeField(CopyStream& rows, std::size_t row, FieldTerms& field, Gathered& gathered) {
    if (field.IsText()) {
      gathered.tallies.Texts.emplace_back();
    } else {
      gathered.tallies.Numbers.emplace_back();
    }
    if (field.IsFromKey()) {
      TallyKey(gathered.keys, row, gathered.tallies.Records.back(), field, gathered.tallies);
      return true;
    }
    if (!field.IsText()) return field.Take(rows, gathered.tallies.Numbers.back());
    field.TakeText(rows, gathered.tallies.Texts.back());
    return true;
  }

  const TableFacts& facts_;
  std::size_t key_;
  std::vector<FieldTerms> terms_;
};

}  // namespace

bool GroupOnServer(const Address& address, const TableFacts& facts, std::size_t key,
                   const std::vector<TalliedField>& fields, Blame blame, const GroupQuery& query,
                   columns::DissolveGroups& groups) {
  const auto unknown = [&](std::size_t field) {
    return facts.Columns[field].Travels == Wire::Nothing ||
           (facts.Fields[field].Type == FieldType::String && !facts.TextsByCode);
  };
  if (unknown(key) || std::any_of(fields.begin(), fields.end(), [&](const TalliedField& field) {
        return unknown(field.Field);
      })) {
    return false;
  }
  Grouping grouping(facts, key, fields);
  for (int attempt = 0; attempt < 2; ++attempt) {
    Transaction server(address);
    Gathered gathered;
    try {
      server.StartCopy(query(grouping.Select()), blame);
      CopyStream rows(server);
      if (!grouping.Take(rows, gathered)) return false;
    } catch (const OutOfRange&) {
      return false;
    }
    if (grouping.IsSure()) {
      groups.Merge(gathered.batch, gathered.tallies);
      return true;
    }
    grouping.Refine();
  }
  return false;
}

}  // namespace brelmon::servers
