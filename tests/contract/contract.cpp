// SPDX-License-Identifier: GPL-2.0-or-later
// Tools of the cases, and the list of all.
#include "tests/contract/contract.h"

#include <iterator>

namespace brelmon::contract {

void ExpectFailure(std::int32_t number, const std::function<void()>& body, const std::string& what,
                   TextView source) {
  try {
    body();
  } catch (const Failure& failure) {
    ExpectEqual(failure.Number, number, what + " fails with another number");
    ExpectEqual(failure.Source, Text(source), what + " fails with another source");
    if (source == u"Brelmon host")
      ExpectEqual(failure.Line, 0, what + " fails with a line of the host's");
    Expect(!failure.Description.empty(), what + " fails without a description");
    return;
  }
  throw std::runtime_error(what + " did not fail");
}

Text ModuleFolder(World& world) {
  const Ref<ITemplates> templates = world.Application()->Templates();
  const Text path = templates->Item(templates->Count() - 1);
  return path.substr(0, path.rfind(u'\\') + 1);
}

Ref<ILayer> LayerNamed(World& world, const Text& name) {
  const Ref<IEnumLayer> layers = world.Document()->FocusMap()->Layers({}, true);
  layers->Reset();
  Text others;
  while (const Ref<ILayer> layer = layers->Next()) {
    if (layer->Name() == name) return layer;
    others += u" " + layer->Name();
  }
  throw std::runtime_error("no layer " + ToUtf8(name) + " among" + ToUtf8(others));
}

Ref<IStandaloneTable> TableNamed(World& world, const Text& name) {
  const auto tables = world.Document()->FocusMap().As<IStandaloneTableCollection>();
  for (std::int32_t i = 0; i < tables->StandaloneTableCount(); ++i) {
    if (tables->StandaloneTable(i)->Name() == name) return tables->StandaloneTable(i);
  }
  throw std::runtime_error("no table " + ToUtf8(name));
}

Ref<IQueryFilter> Where(const Text& clause, const Text& subFields) {
  const auto filter = New<IQueryFilter>();
  filter->WhereClause = clause;
  filter->SubFields = subFields;
  return filter;
}

std::int32_t RowsOf(const Ref<ICursor>& cursor) {
  std::int32_t rows = 0;
  while (cursor->NextRow()) ++rows;
  return rows;
}

Value FirstValue(const Ref<IObject>& table, const Text& field, const Text& clause) {
  const Ref<ICursor> cursor = table.As<ITable>()->Search(Where(clause), false);
  const Ref<IRowBuffer> row = cursor->NextRow();
  Expect(static_cast<bool>(row), "no row where " + ToUtf8(clause));
  return row->Value(table.As<IClass>()->FindField(field));
}

std::vector<Case> AllCases() {
  std::vector<Case> all;
  for (auto cases :
       {ContentsCases(), FieldCases(), RowCases(), SelectionCases(), MapCases(), KindCases()}) {
    std::move(cases.begin(), cases.end(), std::back_inserter(all));
  }
  return all;
}

}  // namespace brelmon::contract
