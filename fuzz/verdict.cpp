// SPDX-License-Identifier: GPL-2.0-or-later
// The reader of where-clauses against GDAL's: what is let through to a source of files is refused
// by both or finds the same rows.
#include <algorithm>
#include <random>

#include "fuzz/input.h"
#include "hosts/columns/querytokens.h"
#include "hosts/data/clauses.h"
#include "hosts/data/openpolicy.h"
#include "platform/failure.h"
#include "tests/support/bothrows.h"

namespace {

using namespace brelmon;

/// The same for all inputs.
test::BothRows& Rows() {
  static std::mt19937 random(11);
  static test::BothRows rows([](unsigned sides) { return static_cast<unsigned>(random() % sides); },
                             40);
  return rows;
}

std::string ByOurs(const Text& clause) {
  try {
    return Rows().KeptBy(*data::WhereOf(clause, test::FieldsOfBoth()));
  } catch (const Failure&) {
    return "refused";
  }
}

bool IsLetThrough(const Text& clause) {
  std::vector<Text> known{u"FID"};
  for (const auto& field : test::FieldsOfBoth()) known.push_back(FromUtf8(field.Name));
  // Read in two ways, and refused.
  for (const TextView mark : {u"\\'", u"\\\""}) {
    if (clause.find(mark) != Text::npos) return false;
  }
  const columns::ClauseNames names = columns::NamesIn(clause);
  return !columns::IsBlank(clause) && clause.find(u'\0') == Text::npos && names.fault.empty() &&
         !columns::UnknownField(names, known);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  data::ConfineGdal();
  const Text clause = FromUtf8(fuzz::BytesOf(data, size));
  if (!IsLetThrough(clause)) return 0;
  fuzz::DemandSame(ByOurs(clause), Rows().ByGdal(ToUtf8(clause)), ToUtf8(clause));
  return 0;
}
