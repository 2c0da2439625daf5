// SPDX-License-Identifier: GPL-2.0-or-later
// Databases: the definition of a virtual table, and a whole file.
#include "fuzz/input.h"
#include "hosts/data/databaseschema.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace brelmon;
  data::KeepsToItsDatabase(fuzz::BytesOf(data, size));
  data::RefusalOfSchema(fuzz::OnDisk(".sqlite", data, size));
  return 0;
}
