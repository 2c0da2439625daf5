// SPDX-License-Identifier: GPL-2.0-or-later
// Texts are compared by words of folded units, which are read from a text once each.
#include "util/textorder.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "util/radixsort.h"

namespace brelmon {
namespace {

/// A text by its place, and the part of it that is looked at.
struct Entry {
  std::uint64_t key;
  std::uint32_t at;
};

/// Entries whose texts agree up to `from`.
struct Range {
  std::size_t first, end, from;
};

// Fewer texts than this are compared whole.
constexpr std::size_t kFew = 8;

char16_t Folded(char16_t unit) {
  if (unit >= 0x80) return FoldCase(unit);
  return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
}

/// How many units all the texts begin with alike.
std::size_t SharedUnits(const Text* texts, std::size_t count) {
  std::size_t shared = texts[0].size();
  for (std::size_t i = 1; i < count && shared > 0; ++i) {
    shared = std::min(shared, texts[i].size());
    for (std::size_t unit = 0; unit < shared; ++unit) {
      if (texts[i][unit] == texts[0][unit]) continue;
      if (Folded(texts[i][unit]) != Folded(texts[0][unit])) shared = unit;
    }
  }
  return shared;
}

/// Whether every folded unit fits into a byte.
bool AreNarrow(const Text* texts, std::size_t count) {
  return std::all_of(texts, texts + count, [](const Text& text) {
    return std::ranges::all_of(text, [](char16_t unit) { return Folded(unit) < 0x100; });
  });
}

class Sorter {
 public:
  Sorter(Text* texts, std::size_t count)
      : texts_(texts), bits_(AreNarrow(texts, count) ? 8 : 16), units_(64 / bits_) {
    order_.resize(count);
    for (std::size_t i = 0; i < count; ++i) order_[i].at = static_cast<std::uint32_t>(i);
    pending_.push_back({0, count, SharedUnits(texts, count)});
  }

  void Sort() {
    while (!pending_.empty()) {
      const Range range = pending_.back();
      pending_.pop_back();
      if (range.end - range.first < kFew) {
        CompareWhole(range);
      } else {
        SortByKeys(range);
        FollowTies(range);
      }
    }
    MoveTexts();
  }

 private:
  const Text& TextOf(const Entry& entry) const { return texts_[entry.at]; }
  TextView RestOf(const Entry& entry, std::size_t from) const {
    const TextView text = TextOf(entry);
    return text.substr(std::min(from, text.size()));
  }
  Entry* Place(std::size_t index) { return order_.data() + index; }

  /// Zeroes stand behind a text's end.
  std::uint64_t KeyOf(const Text& text, std::size_t from) const {
    const std::size_t end = std::min(text.size(), from + units_);
    std::uint64_t key = 0;
    std::size_t unit = from;
    for (; unit < end; ++unit) key = key << bits_ | Folded(text[unit]);
    return unit == from ? 0 : key << bits_ * (from + units_ - unit);
  }

  void CompareWhole(const Range& range) {
    std::sort(Place(range.first), Place(range.end), [&](const Entry& one, const Entry& other) {
      return CompareNoCase(RestOf(one, range.from), RestOf(other, range.from)) < 0;
    });
  }

  void SortByKeys(const Range& range) {
    const std::size_t count = range.end - range.first;
    Entry* const entries = Place(range.first);
    for (std::size_t i = 0; i < count; ++i) entries[i].key = KeyOf(TextOf(entries[i]), range.from);
    const auto below = [](const Entry& one, const Entry& other) { return one.key < other.key; };
    if (std::is_sorted(entries, entries + count, below)) return;
    if (count < kWorthDigits) {
      std::sort(entries, entries + count, below);
    } else {
      SortByDigits(entries, count, [](const Entry& entry) { return entry.key; });
    }
  }

  /// By what comes next, or by their length where nothing does: a zero in a text counts, too.
  void Follow(const Range& tied) {
    const auto shorter = [&](const Entry& one, const Entry& other) {
      return TextOf(one).size() < TextOf(other).size();
    };
    Entry* const first = Place(tied.first);
    Entry* const end = Place(tied.end);
    if (TextOf(*std::max_element(first, end, shorter)).size() > tied.from) {
      pending_.push_back(tied);
    } else if (!std::is_sorted(first, end, shorter)) {
      std::sort(first, end, shorter);
    }
  }

  void FollowTies(const Range& range) {
    const std::size_t next = range.from + units_;
    for (std::size_t first = range.first; first < range.end;) {
      std::size_t end = first + 1;
      while (end < range.end && order_[end].key == order_[first].key) ++end;
      if (end - first > 1) Follow({first, end, next});
      first = end;
    }
  }

  /// Along the circles of the new order.
  void MoveTexts() {
    for (std::uint32_t start = 0; start < order_.size(); ++start) {
      if (order_[start].at == start) continue;
      Text first = std::move(texts_[start]);
      std::uint32_t hole = start;
      for (std::uint32_t from = order_[hole].at; from != start; from = order_[hole].at) {
        texts_[hole] = std::move(texts_[from]);
        order_[hole].at = hole;
        hole = from;
      }
      texts_[hole] = std::move(first);
      order_[hole].at = hole;
    }
  }

  Text* texts_;
  unsigned bits_;      // of a unit in a key
  std::size_t units_;  // in a key
  std::vector<Entry> order_;
  std::vector<Range> pending_;
};

}  // namespace

void SortNoCase(Text* texts, std::size_t count) {
  if (count > 1) Sorter(texts, count).Sort();
}

}  // namespace brelmon
