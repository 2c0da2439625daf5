// SPDX-License-Identifier: GPL-2.0-or-later
// The query dialog's lists: fields of the chosen layer, values of the chosen field, the count.
#include "frame/guard.h"
#include "platform/number.h"
#include "platform/services.h"
#include "selection/brelmon_modquerydialog.h"
#include "selection/mapitem.h"
#include "util/QuickSortNonCase.h"
#include "util/aml_func_mod.h"
#include "util/fieldenclosure.h"

namespace brelmon {
namespace {

/// An apostrophe inside stays single.
Text Quoted(const Value& value) {
  Text text = value.ToText();
  text.reserve(text.size() + 2);
  text.insert(0, 1, u'\'');
  return text += u'\'';
}

/// Reads the unique values of a field from `statistics`, stepping the bar, sorts them and lists
/// them. Fails with 9 where there are none.
template <class T, class Read, class Sort, class Show>
void ListValues(const Ref<IEnumValue>& values, std::int32_t count, IStatusBar& bar, ListBox& list,
                Read read, Sort sort, Show show) {
  if (count < 1) Raise(failure::kSubscript);
  std::vector<T> sorted(static_cast<std::size_t>(count));
  std::int32_t next = 0;
  for (Value value = values->Next(); !value.IsEmpty(); value = values->Next()) {
    At(sorted, next++) = read(value);
    bar.StepProgressBar();
  }
  sort(sorted, 0, count - 1);
  for (T& value : sorted) list.AddItem(show(std::move(value)));
}

/// The kinds of field differ in what their values are read, sorted and shown as. Only texts are
/// quoted, whatever the source.
void ListValuesOf(FieldType type, const Ref<IEnumValue>& values, std::int32_t count,
                  IStatusBar& bar, ListBox& list) {
  switch (type) {
    case FieldType::String:
      ListValues<Text>(values, count, bar, list, Quoted, StringsAscending,
                       [](Text text) { return text; });
      break;
    case FieldType::SmallInteger:
    case FieldType::Integer:
    case FieldType::OID:
      ListValues<std::int32_t>(
          values, count, bar, list, [](const Value& value) { return value.ToLong(); },
          LongAscending, [](std::int32_t number) { return GeneralText(number); });
      break;
    case FieldType::Single:
    case FieldType::Double:
      ListValues<double>(
          values, count, bar, list, [](const Value& value) { return value.ToDouble(); },
          DoubleAscending, [](double number) { return GeneralText(number); });
      break;
    case FieldType::Date:
      ListValues<Date>(
          values, count, bar, list, [](const Value& value) { return value.ToDate(); },
          DatesAscending, [](Date date) { return GeneralText(date); });
      break;
    default:
      break;
  }
}

}  // namespace

void brelmon_ModQueryDialog::lbxThemes_Click() {
  Guard::Top(u"lbxThemes_Click", [&] {
    lbxFields.Clear();
    lbxValues.Clear();
    cmdUpdate.SetEnabled(false);
    EnableQueryControls(true);
    const auto item = ChosenItem();
    const auto [openMark, closeMark] = EnclosureFor(SourceText(item));
    const std::int32_t selected = SelectedCount(item);
    TableOf(item)->RowCount({});
    const Text definition = item.As<ITableDefinition>()->DefinitionExpression();
    EnableNarrowing(definition, selected);
    ListFields(item, openMark, closeMark);
    lbxValues.SetText({});
    if (txtQuery.Visible()) txtQuery.SetFocus();
    ShowDefinition(definition);
    EnableStatTableButtons();
    DisplayNumSelected();
  });
}

void brelmon_ModQueryDialog::ListFields(const Ref<IObject>& item, const Text& openMark,
                                        const Text& closeMark) {
  const auto fields = item.As<ITableFields>();
  const std::int32_t count = fields->FieldCount();
  fieldTokens.assign(static_cast<std::size_t>(count), Text());
  std::int32_t row = 0;
  for (std::int32_t i = 0; i < count; ++i) {
    const auto field = fields->Field(i);
    const auto info = fields->FieldInfo(i);
    if (field->Type() > FieldType::OID || !info->Visible()) continue;
    lbxFields.AddItem(info->Alias(), i);
    At(fieldTokens, row++) = openMark + field->Name() + closeMark;
  }
}

void brelmon_ModQueryDialog::EnableNarrowing(const Text& definition, std::int32_t selectedCount) {
  const bool something = optSelected.Value() ? selectedCount >= 1 : !definition.empty();
  cmdSelFromSet.SetEnabled(something);
  cmdSubtractFromSet.SetEnabled(something);
}

void brelmon_ModQueryDialog::ShowDefinition(const Text& definition) {
  txtCurrentFilter.SetText(definition.empty() ? u"- No Filter Definition Specified -" : definition);
}

void brelmon_ModQueryDialog::lbxFields_Click() {
  Guard::Top(u"lbxFields_Click", [&] { cmdUpdate.SetEnabled(true); });
}

void brelmon_ModQueryDialog::lbxFields_DblClick() {
  Guard::Top(u"lbxFields_DblClick", [&] {
    const std::int32_t row = lbxFields.ListIndex();
    txtQuery.SetSelText(row < 0 ? Text() : At(fieldTokens, row));
    txtQuery.SetFocus();
  });
}

void brelmon_ModQueryDialog::lbxValues_DblClick() {
  Guard::Top(u"lbxValues_DblClick", [&] {
    txtQuery.SetSelText(lbxValues.Text());
    txtQuery.SetFocus();
  });
}

void brelmon_ModQueryDialog::cmdUpdate_Click() {
  Guard::Top(u"cmdUpdate_Click", [&] {
    lbxValues.Clear();
    Screen().SetMousePointer(Pointer::Hourglass);
    const auto item = ChosenItem();
    const auto table = TableOf(item);
    const std::int32_t row = lbxFields.ListIndex();
    if (row < 0) return;  // and the hourglass stays
    Text name = At(fieldTokens, row);
    name = BasicTrimAvenue(name, u"\"[", u"\"]");
    const auto fieldsOf = item.As<IClass>();
    const auto field = fieldsOf->Fields()->Field(fieldsOf->FindField(name));

    const auto bar = ArcApplication->StatusBar();
    const Text message = u"Gathering values from field [" + name + u"]";
    bar->ShowProgressBar(message, 1, 1, 1, true);
    const auto statistics = HostObjects().NewDataStatistics();
    statistics->SetField(name);
    statistics->SetCursor(table->Search({}, false));
    const auto values = statistics->UniqueValues();
    const std::int32_t count = statistics->UniqueValueCount();
    bar->ShowProgressBar(message, 1, count, 1, true);
    ListValuesOf(field->Type(), values, count, *bar, lbxValues);
    bar->HideProgressBar();
    Screen().SetMousePointer(Pointer::Default);
  });
}

void brelmon_ModQueryDialog::DisplayNumSelected() {
  Guard::Inner(u"DisplayNumSelected", [&] {
    if (lbxThemes.ListIndex() < 0) {
      lblNumSelected.SetCaption(u"Number of features = [ - No Theme - ]");
      return;
    }
    const auto item = ChosenItem();
    const std::int32_t selected = SelectedCount(item);
    const std::int32_t rows = TableOf(item)->RowCount({});
    lblNumSelected.SetCaption(optFiltered.Value()
                                  ? u"Number of features displayed = " + InsertCommas(rows)
                                  : u"Number of features highlighted = " + InsertCommas(selected));
  });
}

void brelmon_ModQueryDialog::EnableStatTableButtons() {
  Guard::Top(u"EnableStatTableButtons", [&] {
    const bool chosen = lbxThemes.ListIndex() >= 0;
    for (CommandButton* button : {&cmdOpenTable, &cmdOpenStats, &cmdSwitchSel, &cmdVerify}) {
      button->SetEnabled(chosen);
    }
    DisplayNumSelected();
  });
}

}  // namespace brelmon
