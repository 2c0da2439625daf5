// SPDX-License-Identifier: GPL-2.0-or-later
// The five things that tools ask of a table.
#include "bench/platform/jobs.h"

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/workspace.h"

namespace brelmon::bench {
namespace {

constexpr int kRuns = 5;

Ref<IObject> LayerOf(const Host& host, const Text& name) {
  const Ref<IEnumLayer> layers = host.document->FocusMap()->Layers({}, true);
  while (const Ref<ILayer> layer = layers->Next()) {
    if (layer->Name() == name) return layer;
  }
  throw std::runtime_error("no layer " + ToUtf8(name));
}

Ref<IQueryFilter> Filter(const Text& clause, const Text& fields) {
  const auto filter = New<IQueryFilter>();
  filter->WhereClause = clause;
  filter->SubFields = fields;
  return filter;
}

double SumOfColumn(const Ref<IObject>& layer, const Text& field) {
  const std::int32_t at = layer.As<IClass>()->FindField(field);
  const Ref<ICursor> rows = layer.As<ITable>()->Search(Filter({}, field), true);
  double sum = 0;
  while (const Ref<IRowBuffer> row = rows->NextRow()) sum += row->Value(at).ToDouble();
  return sum;
}

std::int32_t DifferentValues(const Host& host, const Ref<IObject>& layer, const Text& field) {
  const Ref<IDataStatistics> values = host.objects->NewDataStatistics();
  values->SetField(field);
  values->SetCursor(layer.As<ITable>()->Search(Filter({}, field), true));
  return values->UniqueValueCount();
}

void Summarize(const Host& host, const Ref<IObject>& layer, const Text& folder, int number) {
  const auto dataset = New<IDatasetName>();
  dataset->Name = u"timed" + FromUtf8(std::to_string(number)) + u".dbf";
  dataset->WorkspaceName = host.objects->NewShapefileWorkspaceFactory()
                               ->OpenFromFile(folder, 0)
                               .As<IDataset>()
                               ->FullName();
  host.objects->NewBasicGeoprocessor()->Dissolve(
      layer.As<ITable>(), false, u"CAT_S",
      u"Minimum.CAT_S, Count.CAT_S, Minimum.VAL_D, Maximum.VAL_D, Sum.VAL_D, Average.VAL_D",
      dataset);
}

/// Another one each time: a host may remember the last answer.
Text QueryOf(const Job& told, int run) {
  return u"(" + told.query + u") AND \"ID\" > " + FromUtf8(std::to_string(run));
}

double Median(const Host& host, const std::function<void(int)>& job) {
  std::vector<double> times;
  for (int run = 0; run < kRuns; ++run) {
    const auto begin = std::chrono::steady_clock::now();
    host.turn([&] { job(run); });
    const std::chrono::duration<double, std::milli> spent =
        std::chrono::steady_clock::now() - begin;
    times.push_back(spent.count());
  }
  std::sort(times.begin(), times.end());
  return times[kRuns / 2];
}

}  // namespace

void RunJobs(const Host& host, const Job& told, std::ostream& out) {
  const Ref<IObject> rows = LayerOf(host, told.layer);
  const std::vector<std::pair<const char*, std::function<void(int)>>> jobs = {
      {"column", [&](int) { SumOfColumn(rows, u"VAL_D"); }},
      {"unique values of CAT_S", [&](int) { DifferentValues(host, rows, u"CAT_S"); }},
      {"unique values of NAME_S", [&](int) { DifferentValues(host, rows, u"NAME_S"); }},
      {"query, count",
       [&](int run) { rows.As<ITable>()->RowCount(Filter(QueryOf(told, run), {})); }},
      {"query, selection",
       [&](int run) {
         rows.As<ITableSelection>()->SelectRows(Filter(QueryOf(told, kRuns + run), {}),
                                                SelectionMethod::New, false);
       }},
      {"summary", [&](int run) { Summarize(host, rows, told.folder, run); }},
  };
  for (const auto& [name, job] : jobs) {
    out << name << '\t' << static_cast<int>(Median(host, job) + 0.5) << std::endl;
  }
}

}  // namespace brelmon::bench
