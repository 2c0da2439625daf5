// SPDX-License-Identifier: GPL-2.0-or-later
// A dBASE file in memory, and its columns as numbers and as words.
#pragma once

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

struct Column {
  std::size_t at = 0, width = 0;
};

/// A dBASE table in memory; records in their order, none deleted.
class Table {
 public:
  explicit Table(const char* path) {
    const int file = open(path, O_RDONLY);
    struct stat status {};
    if (file < 0 || fstat(file, &status) != 0) std::exit(1);
    void* const mapped = mmap(nullptr, static_cast<std::size_t>(status.st_size), PROT_READ,
                              MAP_PRIVATE | MAP_POPULATE, file, 0);
    if (mapped == MAP_FAILED) std::exit(1);
    bytes_ = static_cast<const char*>(mapped);
    std::memcpy(&count_, bytes_ + 4, 4);
    std::memcpy(&head_, bytes_ + 8, 2);
    std::memcpy(&record_, bytes_ + 10, 2);
  }
  std::size_t Count() const { return count_; }
  const char* Record(std::size_t row) const { return bytes_ + head_ + row * record_; }
  Column Find(std::string_view name) const {
    Column column{1, 0};
    for (const char* field = bytes_ + 32; *field != '\r'; field += 32) {
      column.width = static_cast<unsigned char>(field[16]);
      if (name == field) return column;
      column.at += column.width;
    }
    std::exit(1);
  }

 private:
  const char* bytes_ = nullptr;
  std::uint32_t count_ = 0;
  std::uint16_t head_ = 0, record_ = 0;
};

template <class Number>
std::vector<Number> Numbers(const Table& table, const char* name) {
  const Column column = table.Find(name);
  std::vector<Number> numbers(table.Count());
  for (std::size_t row = 0; row < numbers.size(); ++row) {
    const char* first = table.Record(row) + column.at;
    const char* const end = first + column.width;
    while (first < end && *first == ' ') ++first;
    std::from_chars(first, end, numbers[row]);
  }
  return numbers;
}

/// Texts of up to 24 bytes, blanks at their end, as three words that compare as the texts do.
struct Words {
  std::array<std::uint64_t, 3> word{};
  bool operator==(const Words&) const = default;
};

inline Words WordsOf(const char* text, std::size_t width) {
  char padded[24];
  std::memset(padded, ' ', sizeof padded);
  std::memcpy(padded, text, std::min(width, sizeof padded));
  Words words;
  for (std::size_t i = 0; i < 3; ++i) {
    std::memcpy(&words.word[i], padded + 8 * i, 8);
    words.word[i] = __builtin_bswap64(words.word[i]);
  }
  return words;
}

inline void AppendBytes(std::string& out, const Words& words, std::size_t width) {
  for (const std::uint64_t word : words.word) {
    const std::uint64_t bytes = __builtin_bswap64(word);
    out.append(reinterpret_cast<const char*>(&bytes), std::min<std::size_t>(width, 8));
    if ((width -= std::min<std::size_t>(width, 8)) == 0) return;
  }
}

/// In lower case, if they are letters, digits and blanks.
inline Words Folded(Words words) {
  for (std::uint64_t& word : words.word) word |= (word & 0x4040404040404040) >> 1;
  return words;
}

inline std::vector<Words> Texts(const Table& table, const char* name) {
  const Column column = table.Find(name);
  std::vector<Words> texts(table.Count());
  for (std::size_t row = 0; row < texts.size(); ++row) {
    texts[row] = WordsOf(table.Record(row) + column.at, column.width);
  }
  return texts;
}
