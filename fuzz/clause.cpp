// SPDX-License-Identifier: GPL-2.0-or-later
// Where-clauses: names, then the compiled clause over a few rows, nulls among them.
#include "frame/guard.h"
#include "fuzz/input.h"
#include "hosts/columns/querytokens.h"
#include "hosts/data/clauses.h"
#include "hosts/data/openpolicy.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace brelmon;
  using namespace brelmon::columns;
  data::ConfineGdal();
  const Text clause = FromUtf8(fuzz::BytesOf(data, size));
  const ClauseNames names = NamesIn(clause);
  if (IsBlank(clause) || !names.fault.empty() || clause.find(u'\0') != Text::npos) return 0;
  if (UnknownField(names, {u"N", u"X", u"T", u"FID"})) return 0;
  const std::vector<Field> fields{{"N", FieldType::Integer, Storage::Whole},
                                  {"X", FieldType::Double, Storage::Real},
                                  {"T", FieldType::String, Storage::Text}};
  std::vector<std::int64_t> wholes{1, -5, 0};
  std::vector<double> reals{0.5, -1e300, 0};
  std::vector<std::string_view> texts{"a", "O'Brien \xC3\xA4", ""};
  const std::vector<std::uint8_t> nulls{0, 0, 1};
  Guard::Ignore([&] {
    const auto where = data::WhereOf(clause, fields);
    Batch batch;
    batch.Rows = 3;
    batch.Ids = {0, 1, 2};
    batch.Live = {0, 1, 2};
    batch.Columns = {
        {nulls, wholes, {}, {}, {}}, {nulls, {}, reals, {}, {}}, {nulls, {}, {}, {}, texts}};
    where->Keep(batch);
    fuzz::Demand(batch.Live.size() <= 3);
  });
  return 0;
}
