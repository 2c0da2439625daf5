// SPDX-License-Identifier: GPL-2.0-or-later
// The evaluator of columns: bytes choose rows and clauses, and GDAL finds the same rows or is left
// to.
#include "fuzz/input.h"
#include "tests/support/clausegrammar.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace brelmon;
  const std::uint8_t *at = data, *end = data + size;
  const test::Roll roll = [&](unsigned sides) {
    unsigned number = 0;
    for (unsigned room = 1; room < sides && at < end; room *= 256) number = number * 256 + *at++;
    return number % sides;
  };
  test::Clauses clauses(roll);
  // The clauses first: rows are longer.
  std::vector<std::string> some(4);
  for (std::string& clause : some) clause = clauses.Next();
  test::BothRows rows(roll, 12);
  for (const std::string& clause : some) {
    const std::string ours = rows.ByColumns(clause);
    if (ours != "unknown") fuzz::DemandSame(ours, rows.ByGdal(clause), clause);
  }
  return 0;
}
