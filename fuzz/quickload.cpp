// SPDX-License-Identifier: GPL-2.0-or-later
// QuickLoad.txt: what was read and is written again reads the same.
#include "frame/guard.h"
#include "fuzz/input.h"
#include "quickload/QuickLoadFile.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace brelmon;
  fuzz::OneFileWorld world(fuzz::BytesOf(data, size));
  std::vector<QuickLoadRecord> records;
  if (Guard::Ignore([&] { records = QuickLoadFile::Read(u"C:\\q.txt"); }) != 0) return 0;
  QuickLoadFile::Rewrite(u"C:\\q.txt", records);
  const auto again = QuickLoadFile::Read(u"C:\\q.txt");
  fuzz::Demand(again.size() == records.size());
  for (std::size_t i = 0; i < records.size(); ++i) {
    fuzz::Demand(again[i].Is == records[i].Is && again[i].Fields == records[i].Fields);
  }
  return 0;
}
