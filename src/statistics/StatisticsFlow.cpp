// SPDX-License-Identifier: GPL-2.0-or-later
// One run of the statistics: dialog, values of each field, report.
#include "statistics/StatisticsFlow.h"

#include <limits>

#include "platform/date.h"
#include "platform/map.h"
#include "platform/number.h"
#include "platform/services.h"
#include "platform/workspace.h"
#include "statistics/BrelmonFunctions.h"
#include "statistics/brelmon_themeiddialog.h"
#include "util/QuickSortNonCase.h"
#include "util/aml_func_mod.h"
#include "util/fieldenclosure.h"

namespace brelmon {
namespace {

constexpr double kNoValue = -9999;
constexpr std::size_t kRuleHyphens = 74;

Text Rule(std::size_t hyphens) { return Text(hyphens, u'-') + Text(kCrLf); }

struct Source {
  Text TableName;
  FieldEnclosure Enclosure;
  Ref<ITable> Table;
  Ref<ITableSelection> Selection;
  std::vector<std::int32_t> Indices;
  std::vector<Ref<IField>> Fields;
  std::vector<Ref<IFieldInfo>> Infos;
};

struct Choices {
  bool AllRecords = true;
  bool Ignore = false;
  std::vector<double> Ignored;
  std::int16_t Decimals = 0;
};

/// As a report without values tells it.
struct FieldStatistics {
  double Total = 0, Mean = kNoValue, Median = kNoValue;
  Text Mode = u"< No Mode Found >";
  double Minimum = kNoValue, Maximum = kNoValue, Range = 0;
  double StandardError = kNoValue, Variance = kNoValue, StandardDeviation = kNoValue;
  double Records = 0;
};

/// Whole source texts are compared, but for one word.
const FieldEnclosure& EnclosureOfLayer(const Text& sourceType) {
  if (sourceType == u"Personal Geodatabase Feature Class") return kBrackets;
  if (sourceType == u"SDE Feature Class") return kNotEnclosed;
  return sourceType.find(u"IMS") != Text::npos ? kNotEnclosed : kQuotations;
}

/// The fields of both kinds are asked of the layer, so that a standalone table with a chosen field
/// ends the run with an unset object.
void AddFields(Source& source, const Ref<ILayerFields>& fields,
               const Collection<std::int32_t>& indices) {
  for (std::int32_t k = 1; k <= indices.Count(); ++k) {
    source.Indices.push_back(indices.Item(k));
    source.Fields.push_back(fields->Field(indices.Item(k)));
    source.Infos.push_back(fields->FieldInfo(indices.Item(k)));
  }
}

Source ReadSource(const brelmon_ThemeIDDialog& dialog) {
  const Ref<IObject> item = dialog.StatisticsTable();
  Source source;
  if (item.Offers<IFeatureLayer>()) {
    source.Enclosure = EnclosureOfLayer(item.As<IFeatureLayer>()->DataSourceType());
    source.TableName = item.As<ILayer>()->Name();
    AddFields(source, item.As<ILayerFields>(), dialog.StatisticsFieldIndices);
    source.Table = item.As<ITable>();
    source.Selection = item.As<ITableSelection>();
  } else if (item.Offers<IStandaloneTable>()) {
    const auto factory = item.As<IDataset>()->Workspace()->WorkspaceFactory();
    source.Enclosure = EnclosureFor(factory->WorkspaceDescription(false));
    AddFields(source, nullptr, dialog.StatisticsFieldIndices);
    source.TableName = item.As<IStandaloneTable>()->Name();
    source.Table = item.As<IStandaloneTable>()->Table();
    source.Selection = item.As<ITableSelection>();
  }
  return source;
}

/// Two places more, in 16 bits.
std::int16_t Finer(std::int16_t decimals) {
  if (decimals > std::numeric_limits<std::int16_t>::max() - 2) Raise(failure::kOverflow);
  return static_cast<std::int16_t>(decimals + 2);
}

class Run {
 public:
  Run(const Ref<IApplication>& application, const StatisticsVariant& variant, Source source,
      Choices choices, Ref<NumberNames> names)
      : application_(application),
        variant_(variant),
        source_(std::move(source)),
        choices_(std::move(choices)),
        names_(std::move(names)),
        selection_(source_.Selection->SelectionSet()),
        filter_(New<IQueryFilter>()) {}

  Text Report() {
    for (std::size_t k = 0; k < source_.Fields.size(); ++k) AppendField(k);
    if (choices_.Ignore) AppendIgnored();
    const Date now = Clock().Now();
    return report_ + u"Analysis Complete:   " + LongTime(now) + Text(kCrLf) + LongDate(now);
  }

 private:
  void AppendField(std::size_t k) {
    const Text name = source_.Fields[k]->Name();
    const Text alias = source_.Infos[k]->Alias();
    const auto filter = Exclusion(name);
    const bool all = choices_.AllRecords;
    const auto cursor =
        all ? source_.Table->Search(filter, true) : selection_->Search(filter, true);
    // The whole selection counts, also what the filter keeps out.
    const std::int32_t count = all ? source_.Table->RowCount(filter) : selection_->Count();
    FieldStatistics statistics;
    if (count != 0) {
      auto values = Gather(cursor, source_.Indices[k], name, count);
      statistics = values.size() == 1 ? OfOne(values[0]) : Calculate(values, name);
    }
    bar_->HideProgressBar();  // unset where the first field had no values: the run ends there
    AppendBlock(alias, statistics);
  }

  Ref<IQueryFilter> Exclusion(const Text& name) {
    if (!choices_.Ignore) return {};
    Text clause;
    const auto& [open, close] = source_.Enclosure;
    if (source_.Enclosure != kNotEnclosed || variant_.ExcludesNotEnclosed) {
      for (const double value : choices_.Ignored) {
        clause += open + name + close + u" <> " + GeneralText(value) + u" AND ";
      }
    }
    filter_->WhereClause = BasicTrimAvenue(clause, u"", u" and");
    filter_->SubFields = name;
    return filter_;
  }

  std::vector<double> Gather(const Ref<ICursor>& cursor, std::int32_t index, const Text& name,
                             std::int32_t count) {
    auto row = cursor->NextRow();
    std::vector<double> values(static_cast<std::size_t>(count) + 1);
    bar_ = application_->StatusBar();
    Screen().SetMousePointer(Pointer::Hourglass);
    bar_->ShowProgressBar(u"Gathering values from field [" + name + u"] in " + source_.TableName, 1,
                          count, 1, true);
    std::int32_t last = -1;
    for (; row; row = cursor->NextRow()) {
      const double value = row->Value(index).ToDouble();  // a null ends the run
      At(values, ++last) = value;
      bar_->StepProgressBar();
    }
    bar_->HideProgressBar();
    if (last < 0) Raise(failure::kSubscript);  // no array is shrunk to nothing
    values.resize(static_cast<std::size_t>(last) + 1);
    return values;
  }

  static FieldStatistics OfOne(double value) {
    FieldStatistics statistics;
    statistics.Total = statistics.Mean = statistics.Median = value;
    statistics.Minimum = statistics.Maximum = value;
    statistics.StandardError = statistics.Variance = statistics.StandardDeviation = 0;
    statistics.Records = 1;
    return statistics;
  }

  FieldStatistics Calculate(std::vector<double>& values, const Text& name) {
    DoubleAscending(values, 0, static_cast<std::int32_t>(values.size()) - 1);
    StatisticsResults results;
    StatsFromArray(values, name, source_.TableName, results, application_);
    const auto number = [&](statistic::Index index) { return results[index].ToDouble(); };
    FieldStatistics statistics;
    statistics.Total = number(statistic::Total);
    statistics.Mean = number(statistic::Mean);
    statistics.Minimum = number(statistic::Minimum);
    statistics.Maximum = number(statistic::Maximum);
    statistics.Range = number(statistic::Range);
    statistics.StandardDeviation = number(statistic::StandardDeviation);
    statistics.Variance = number(statistic::Variance);
    statistics.Median = number(statistic::Median);
    statistics.StandardError = number(statistic::StandardError);
    statistics.Mode = results[statistic::Mode].ToText();
    statistics.Records = static_cast<double>(values.size());
    return statistics;
  }

  void AppendBlock(const Text& alias, const FieldStatistics& s) {
    const auto number = [&](double value, std::int16_t decimals) {
      return FormatNumberBrelmon(value, names_, decimals);
    };
    const std::int16_t usual = choices_.Decimals, fine = Finer(usual);
    report_ += u"Statistics on Field \"" + alias + u"\" in " + source_.TableName + u":";
    report_ += kCrLf;
    report_ += choices_.AllRecords ? u"   --> All Records Analyzed..."
                                   : u"   --> Only Selected Records Analyzed...";
    report_ += Text(kCrLf) + Rule(kRuleHyphens);
    AppendLine(u"  Total: ", number(s.Total, usual));
    AppendLine(u"  Mean: ", number(s.Mean, usual));
    AppendLine(u"  Median: ", number(s.Median, usual));
    AppendLine(u"  Mode: ", s.Mode);
    AppendLine(u"  Minimum: ", number(s.Minimum, usual));
    AppendLine(u"  Maximum: ", number(s.Maximum, usual));
    AppendLine(u"  Range: ", number(s.Range, usual));
    AppendLine(u"  Standard Error of Mean: ", number(s.StandardError, fine));
    AppendLine(u"  Variance: ", number(s.Variance, fine));
    AppendLine(u"  Standard Deviation: ", number(s.StandardDeviation, fine));
    AppendLine(u"  Number of Records: ", number(s.Records, 0));
    AppendLine(u"  Empty/Null Values: ", number(0, 0));  // a null never gets this far
    report_ += Rule(kRuleHyphens);
    report_ += kCrLf;
  }

  void AppendIgnored() {
    AppendLine(u"The following values were ignored in the analysis:", {});
    for (const double value : choices_.Ignored) AppendLine(u" --> ", GeneralText(value));
    report_ += Rule(variant_.ClosingHyphens);
  }

  void AppendLine(TextView label, const Text& text) {
    report_.append(label).append(text).append(kCrLf);
  }

  const Ref<IApplication>& application_;
  const StatisticsVariant& variant_;
  Source source_;
  Choices choices_;
  Ref<NumberNames> names_;
  Ref<ISelectionSet> selection_;
  Ref<IQueryFilter> filter_;
  Ref<IStatusBar> bar_;
  Text report_;
};

/// A number that was typed is shown as typed again.
void ShowDecimalPlaces(ComboBox& box, std::int16_t places) {
  if (places >= 0 && places < box.ListCount()) {
    box.SetListIndex(places);
  } else {
    box.SetText(GeneralText(places));
  }
}

Ref<brelmon_ThemeIDDialog> ShowDialog(const Ref<IApplication>& application,
                                      const StatisticsOffer& offer,
                                      const StatisticsDefaults& defaults) {
  const auto dialog = New<brelmon_ThemeIDDialog>();
  dialog->ArcApplication = application;
  dialog->theTableLayers = offer.Items;
  dialog->theCurrentSelected = offer.Selected;
  dialog->txtNoData.SetText(defaults.ExcludeText);
  dialog->chkNoData.SetValue(defaults.Ignore ? 1 : 0);
  ShowDecimalPlaces(dialog->cbxDecPlaces, defaults.DecimalPlaces);
  dialog->ShowModal();
  return dialog;
}

}  // namespace

void RunStatistics(const Ref<IApplication>& application, const StatisticsOffer& offer,
                   StatisticsDefaults& defaults, const StatisticsVariant& variant) {
  const auto dialog = ShowDialog(application, offer, defaults);
  if (!dialog->ShouldContinue) return;
  Source source = ReadSource(*dialog);
  Choices choices{dialog->DoAllRecords, dialog->IgnoreValues, dialog->IgnoreValuesArray,
                  dialog->NumberDecimalPlaces};
  defaults = {dialog->ExcludeString, choices.Ignore, choices.AllRecords, choices.Decimals};
  auto names = MakeNumNameDictionary();
  dialog->Unload();
  const Text report =
      Run(application, variant, std::move(source), std::move(choices), std::move(names)).Report();
  if (variant.ResetsPointer) Screen().SetMousePointer(Pointer::Default);
  variant.ShowReport(report);
}

void RunDialogStatistics(const Ref<IApplication>& application, const Ref<IObject>& item,
                         StatisticsDefaults& defaults, Ref<frmReport_modal>& report) {
  StatisticsOffer offer;
  offer.Items.Add(item, u"0");
  offer.Selected = item;
  StatisticsVariant variant;
  variant.ExcludesNotEnclosed = false;
  variant.ClosingHyphens = 58;
  variant.ResetsPointer = false;
  variant.ShowReport = [&report](const Text& text) {
    if (!report) report = New<frmReport_modal>();
    report->txtReport.SetText(text);
    report->ShowModal();
  };
  RunStatistics(application, offer, defaults, variant);
}

}  // namespace brelmon
