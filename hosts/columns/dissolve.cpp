// SPDX-License-Identifier: GPL-2.0-or-later
// From rows over groups to the columns of the new table.
#include "hosts/columns/dissolve.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <set>

#include "hosts/columns/dbftable.h"
#include "hosts/columns/dissolvegroups.h"
#include "hosts/columns/dissolveterms.h"
#include "hosts/common/folderworkspace.h"
#include "hosts/common/hostfailure.h"

namespace brelmon::columns {
namespace {

constexpr double kNull = std::numeric_limits<double>::quiet_NaN();
constexpr int kCountWidth = 9, kSmallWidth = 4;

/// Extremes look like their field; what is reckoned from many values has the digits that it needs.
DbfColumn ColumnFor(const DissolveTerm& term, const Field& field) {
  using Kind = DbfColumn::Kind;
  DbfColumn column;
  column.Name = term.Column;
  column.Is = Kind::Real;
  if (term.Of == Statistic::Count) {
    column.Is = Kind::Whole;
    column.Width = kCountWidth;
    return column;
  }
  const bool extreme = term.Of == Statistic::Minimum || term.Of == Statistic::Maximum;
  if (field.Stored == Storage::Whole && (extreme || term.Of == Statistic::Sum)) {
    column.Is = Kind::Whole;
    column.Width = field.Type == FieldType::SmallInteger ? kSmallWidth : kCountWidth;
  } else if (field.Type == FieldType::String) {
    column.Is = Kind::Text;
  } else if (field.Type == FieldType::Date) {
    column.Is = Kind::Date;
  }
  if (extreme && field.Width > 0) {
    column.Width = field.Width;
    column.Decimals = column.Is == Kind::Real ? field.Decimals : 0;
  }
  return column;
}

double ValueOf(Statistic statistic, const NumberTally& tally) {
  if (tally.Count == 0) return kNull;
  switch (statistic) {
    case Statistic::Minimum:
      return tally.Minimum;
    case Statistic::Maximum:
      return tally.Maximum;
    case Statistic::Average:
      return tally.Average();
    case Statistic::Sum:
      return tally.Sum();
    case Statistic::Variance:
      return tally.Variance();
    case Statistic::StdDev:
      return std::sqrt(tally.Variance());
    case Statistic::Count:
      break;
  }
  return static_cast<double>(tally.Count);
}

void Fill(DbfColumn& column, const DissolveTerm& term, const DissolveGroups& groups,
          const std::vector<std::size_t>& order) {
  for (const std::size_t group : order) {
    if (term.Of == Statistic::Count) {
      column.Numbers.push_back(static_cast<double>(groups.Records(group)));
    } else if (column.Is == DbfColumn::Kind::Text) {
      const TextTally& tally = groups.Texts(group, term.Source);
      column.NullTexts.push_back(!tally.Any);
      column.Texts.push_back(term.Of == Statistic::Minimum ? tally.Minimum : tally.Maximum);
    } else {
      const double value = ValueOf(term.Of, groups.Numbers(group, term.Source));
      if (std::isnan(value) && groups.Numbers(group, term.Source).Count > 0) {
        host::Fail(failure::kOverflow, "The values of " + column.Name + " are too large.");
      }
      column.Numbers.push_back(value);
    }
  }
}

/// A name that a dBASE table can bear, extension included.
std::string TableFileName(const Text& fileName) {
  std::string name = ToUtf8(Trim(fileName));
  const std::size_t point = name.rfind('.');
  const std::string stem = name.substr(0, point);
  const bool odd = name.find_first_of("<>:\"/\\|?*") != std::string::npos ||
                   std::any_of(name.begin(), name.end(),
                               [](char c) { return static_cast<unsigned char>(c) < ' '; });
  if (odd || stem.find_first_not_of(". ") == std::string::npos) {
    host::Fail(failure::kBadFileNumber, "A dBASE table can't be named \"" + name + "\".");
  }
  if (point == std::string::npos) return name + ".dbf";
  if (!EqualNoCase(FromUtf8(name.substr(point)), u".dbf")) {
    host::Fail(failure::kBadFileNumber,
               "The name of a dBASE table ends in .dbf, not as in \"" + name + "\".");
  }
  return name;
}

/// The fields that the terms ask of, ascending, and what of each.
std::vector<TalliedField> TalliedFields(const std::vector<DissolveTerm>& terms) {
  std::map<std::size_t, TalliedField> tallied;
  for (const DissolveTerm& term : terms) {
    if (term.Of == Statistic::Count) continue;
    TalliedField& field = tallied[term.Source];
    field.Field = term.Source;
    field.Sum = field.Sum || term.Of == Statistic::Sum || term.Of == Statistic::Average;
    field.Spread = field.Spread || term.Of == Statistic::Variance || term.Of == Statistic::StdDev;
  }
  std::vector<TalliedField> fields;
  fields.reserve(tallied.size());
  for (const auto& each : tallied) fields.push_back(each.second);
  return fields;
}

DissolveGroups Gather(const IColumnTable::Rows& rows, std::size_t key,
                      const std::vector<DissolveTerm>& terms) {
  const std::vector<TalliedField> tallied = TalliedFields(terms);
  std::set<std::size_t> read;
  for (const TalliedField& each : tallied) read.insert(each.Field);
  DissolveGroups groups(rows.source->Fields(), key, {read.begin(), read.end()});
  RowRequest request = rows.request;
  request.WithIds = false;
  if (rows.source->Group(request, key, tallied, groups)) return groups;
  read.insert(key);
  request.Fields.assign(read.begin(), read.end());
  const auto reader = rows.source->Read(request);
  while (const auto batch = reader->Next()) groups.Add(*batch);
  return groups;
}

class Geoprocessor : public IBasicGeoprocessor {
 public:
  explicit Geoprocessor(DissolveResult open) : open_(std::move(open)) {}

  Ref<ITable> Dissolve(const Ref<ITable>& input, bool useSelected, const Text& field,
                       const Text& summary, const Ref<IDatasetName>& output) override {
    const auto folder = output->WorkspaceName.As<host::DatasetPath>(0);
    const auto rows = input.As<IColumnTable>(0)->VisibleRows(useSelected);
    return open_(columns::Dissolve(rows, field, summary, folder->SystemPath, output->Name));
  }

 private:
  DissolveResult open_;
};

}  // namespace

std::string Dissolve(const IColumnTable::Rows& rows, const Text& field, const Text& summary,
                     const std::string& folder, const Text& fileName) {
  const std::string path = folder + (folder.ends_with('/') ? "" : "/") + TableFileName(fileName);
  const auto& fields = rows.source->Fields();
  const std::size_t key = FieldNamed(fields, ToUtf8(field));
  const auto terms = ParseTerms(ToUtf8(summary), fields);
  const DissolveGroups groups = Gather(rows, key, terms);
  const auto order = groups.InOrder();
  std::vector<DbfColumn> made;
  for (const DissolveTerm& term : terms) {
    made.push_back(ColumnFor(term, fields[term.Source]));
    Fill(made.back(), term, groups, order);
  }
  WriteDbfTable(path, rows.source->Encoding(), std::move(made), order.size());
  return path;
}

Ref<IBasicGeoprocessor> NewBasicGeoprocessor(DissolveResult open) {
  return New<Geoprocessor>(std::move(open));
}

}  // namespace brelmon::columns
