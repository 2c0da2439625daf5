// SPDX-License-Identifier: GPL-2.0-or-later
// The least that one thread can do for each job of bench/table: maps a dBASE file, reads the
// columns that the job needs, and prints or writes the result. With nothing of ours, and checking
// nothing: what the tools take beyond it is the price of their generality.
#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "floortable.h"

namespace {

/// Six passes at most over the numbers' bits, made to ascend with their value.
void Sort(std::vector<double>& numbers) {
  constexpr int kDigits = 6, kBits = 11;
  constexpr std::size_t kDigit = (1 << kBits) - 1;
  const std::size_t count = numbers.size();
  std::vector<std::uint64_t> keys(count), other(count);
  std::vector<std::array<std::uint32_t, kDigit + 1>> counts(kDigits);
  for (std::size_t i = 0; i < count; ++i) {
    const auto bits = std::bit_cast<std::int64_t>(numbers[i]);
    keys[i] = static_cast<std::uint64_t>(bits ^ (bits >> 63 | INT64_MIN));
    for (int d = 0; d < kDigits; ++d)
      ++counts[static_cast<std::size_t>(d)][keys[i] >> d * kBits & kDigit];
  }
  for (int d = 0; d < kDigits; ++d) {
    auto& starts = counts[static_cast<std::size_t>(d)];
    if (starts[keys[0] >> d * kBits & kDigit] == count) continue;
    std::uint32_t next = 0;
    for (std::uint32_t& start : starts) next += std::exchange(start, next);
    for (const std::uint64_t key : keys) other[starts[key >> d * kBits & kDigit]++] = key;
    keys.swap(other);
  }
  for (std::size_t i = 0; i < count; ++i) {
    const auto key = static_cast<std::int64_t>(keys[i]);
    numbers[i] = std::bit_cast<double>(key ^ (~key >> 63 | INT64_MIN));
  }
}

int Statistics(const Table& table, const char* field) {
  auto numbers = Numbers<double>(table, field);
  Sort(numbers);
  const std::size_t n = numbers.size();
  double total = 0, squares = 0, mode = 0;
  std::size_t most = 1;
  for (std::size_t i = 0, run = 0; i < n; ++i) {
    total += numbers[i];
    run = i > 0 && numbers[i] == numbers[i - 1] ? run + 1 : 1;
    if (run > most) most = run, mode = numbers[i];
  }
  const double mean = total / static_cast<double>(n);
  for (const double number : numbers) squares += (number - mean) * (number - mean);
  const double variance = squares / static_cast<double>(n - 1);
  std::printf("%zu %.15g %.15g %.15g %.15g %.15g %.15g %.15g %.15g %zu\n", n, total, mean,
              (numbers[(n - 1) / 2] + numbers[n / 2]) / 2, mode, numbers.front(), numbers.back(),
              variance, std::sqrt(variance / static_cast<double>(n)), most);
  return 0;
}

/// A number from 0 for each different text, by open addressing.
class Numbering {
 public:
  std::uint32_t NumberOf(const Words& words) {
    if (texts_.size() * 2 >= slots_.size()) Grow();
    const std::uint64_t hash = HashOf(words);
    std::size_t at = hash & (slots_.size() - 1);
    for (; slots_[at].number != 0; at = (at + 1) & (slots_.size() - 1)) {
      const Slot& slot = slots_[at];
      if (slot.half == hash >> 32 && texts_[slot.number - 1] == words) return slot.number - 1;
    }
    texts_.push_back(words);
    slots_[at] = {static_cast<std::uint32_t>(hash >> 32),
                  static_cast<std::uint32_t>(texts_.size())};
    return slots_[at].number - 1;
  }
  const std::vector<Words>& Texts() const { return texts_; }

 private:
  struct Slot {
    std::uint32_t half = 0, number = 0;  // of the hash; from 1, 0 for a free slot
  };
  static std::uint64_t HashOf(const Words& words) {
    std::uint64_t hash = 0;
    for (const std::uint64_t word : words.word) {
      hash = (hash ^ word) * 0x9E3779B97F4A7C15;
      hash ^= hash >> 29;
    }
    return hash;
  }
  void Grow() {
    slots_.assign(std::max<std::size_t>(slots_.size() * 4, 4096), {});
    for (const Words& words : texts_) {
      const std::uint64_t hash = HashOf(words);
      std::size_t at = hash & (slots_.size() - 1);
      while (slots_[at].number != 0) at = (at + 1) & (slots_.size() - 1);
      slots_[at] = {static_cast<std::uint32_t>(hash >> 32),
                    static_cast<std::uint32_t>(&words - texts_.data()) + 1};
    }
  }
  std::vector<Words> texts_;
  std::vector<Slot> slots_;
};

int Values(const Table& table, const char* field) {
  Numbering numbering;
  for (const Words& words : Texts(table, field)) numbering.NumberOf(words);
  std::vector<std::pair<Words, std::uint32_t>> order;
  for (const Words& words : numbering.Texts()) {
    order.emplace_back(Folded(words), static_cast<std::uint32_t>(order.size()));
  }
  std::sort(order.begin(), order.end(),
            [](const auto& one, const auto& other) { return one.first.word < other.first.word; });
  std::string out;
  for (const auto& [folded, number] : order) {
    out += '\'';
    AppendBytes(out, numbering.Texts()[number], 24);
    out.erase(out.find_last_not_of(' ') + 1);
    out += "'\n";
  }
  return std::fwrite(out.data(), 1, out.size(), stdout) == out.size() ? 0 : 1;
}

struct Group {
  double count = 0, sum = 0, squares = 0, least = INFINITY, most = -INFINITY;
};

/// The text, and six columns of numbers.
int WriteGroups(const char* path, const std::vector<Words>& texts,
                const std::vector<Group>& groups) {
  constexpr std::uint16_t kText = 16, kNumber = 24, kColumns = 7;
  constexpr std::uint16_t kHead = 33 + 32 * kColumns, kRecord = 1 + kText + 6 * kNumber;
  std::string out(kHead, '\0');
  const auto count = static_cast<std::uint32_t>(groups.size());
  out[0] = 3;
  std::memcpy(&out[4], &count, 4);
  std::memcpy(&out[8], &kHead, 2);
  std::memcpy(&out[10], &kRecord, 2);
  for (std::size_t i = 0; i < kColumns; ++i) {
    char* const field = &out[32 + 32 * i];
    std::snprintf(field, 11, "FIELD%zu", i);
    field[11] = i == 0 ? 'C' : 'N';
    field[16] = i == 0 ? kText : kNumber;
    field[17] = i == 0 ? 0 : 8;
  }
  out.back() = '\r';
  for (std::size_t i = 0; i < groups.size(); ++i) {
    const Group& group = groups[i];
    const double mean = group.sum / group.count;
    const double variance = (group.squares - group.sum * mean) / (group.count - 1);
    out += ' ';
    AppendBytes(out, texts[i], kText);
    for (const double number :
         {group.least, group.most, group.sum, mean, std::sqrt(variance), variance}) {
      char text[kNumber + 1];
      std::snprintf(text, sizeof text, "%24.8f", number);
      out.append(text, kNumber);
    }
  }
  std::FILE* const file = std::fopen(path, "wb");
  if (file == nullptr || std::fwrite(out.data(), 1, out.size(), file) != out.size()) return 1;
  return std::fclose(file);
}

int Summarize(const Table& table, const char* category, const char* value, const char* path) {
  const auto texts = Texts(table, category);
  const auto numbers = Numbers<double>(table, value);
  Numbering numbering;
  std::vector<Group> groups;
  for (std::size_t row = 0; row < table.Count(); ++row) {
    const std::size_t at = numbering.NumberOf(texts[row]);
    if (at == groups.size()) groups.emplace_back();
    const double number = numbers[row];
    Group& group = groups[at];
    group.count += 1;
    group.sum += number;
    group.squares += number * number;
    group.least = std::min(group.least, number);
    group.most = std::max(group.most, number);
  }
  return WriteGroups(path, numbering.Texts(), groups);
}

/// "VAL_D" > 20 AND ("CAT_S" ILIKE 'kar%' OR "CNT_I" < 500000000)
int Query(const Table& table, bool select) {
  const auto values = Numbers<double>(table, "VAL_D");
  const auto counts = Numbers<std::int32_t>(table, "CNT_I");
  const auto texts = Texts(table, "CAT_S");
  const std::uint64_t begins = WordsOf("kar", 3).word[0] >> 40;
  std::vector<std::uint32_t> selected;
  std::size_t count = 0;
  for (std::size_t row = 0; row < table.Count(); ++row) {
    const bool matches = values[row] > 20 &&
                         (counts[row] < 500'000'000 || Folded(texts[row]).word[0] >> 40 == begins);
    if (!matches) continue;
    ++count;
    if (select) selected.push_back(static_cast<std::uint32_t>(row));
  }
  std::printf("%zu\n", select ? selected.size() : count);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string_view job = argc < 3 ? "" : argv[1];
  if (job == "statistics" && argc == 4) return Statistics(Table(argv[2]), argv[3]);
  if (job == "values" && argc == 4) return Values(Table(argv[2]), argv[3]);
  if (job == "summarize" && argc == 6) return Summarize(Table(argv[2]), argv[3], argv[4], argv[5]);
  if ((job == "count" || job == "select") && argc == 3)
    return Query(Table(argv[2]), job == "select");
  std::fputs(
      "floor statistics|values FILE FIELD | summarize FILE FIELD FIELD OUT | "
      "count|select FILE\n",
      stderr);
  return 2;
}
