// SPDX-License-Identifier: GPL-2.0-or-later
// media_list.txt: each line is an item, a note or a failure, and the reader comes to the end.
#include "media/MediaList.h"
#include "frame/guard.h"
#include "fuzz/input.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace brelmon;
  fuzz::OneFileWorld world(fuzz::BytesOf(data, size));
  textfile::Open(1, u"C:\\m.txt", FileMode::Input);
  std::int32_t skipped = 0, items = 0, failed = 0;
  MediaListReader reader(1, u"C:\\Module\\", [&](const Text&, std::int32_t) { ++skipped; });
  Text label;
  for (bool more = true; more;) {
    std::optional<MediaItem> item;
    const bool fails = Guard::Ignore([&] { item = reader.Next(); }) != 0;
    more = fails || item;
    failed += fails;
    if (!item) continue;
    ++items;
    AllMediaRow(*item, label);
    fuzz::Demand(item->Line == reader.Line());
  }
  fuzz::Demand(items + skipped + failed == reader.Line());
  return 0;
}
