// SPDX-License-Identifier: GPL-2.0-or-later
// A session's line as words, quoted as in a shell.
#include "cli/words.h"

#include <stdexcept>

namespace brelmon::cli {
namespace {

class Splitter {
 public:
  explicit Splitter(const std::string& line) : line_(line) {}

  std::vector<std::string> Split() {
    for (; at_ < line_.size(); ++at_) {
      const char unit = line_[at_];
      if (unit == ' ' || unit == '\t' || unit == '\r') {
        EndWord();
      } else if (unit == '#' && !inWord_ && !AtNumber()) {
        break;
      } else {
        Take(unit);
      }
    }
    EndWord();
    return std::move(words_);
  }

 private:
  void Take(char unit) {
    inWord_ = true;
    if (unit == '\'' || unit == '"') {
      TakeQuoted(unit);
    } else if (unit == '\\' && at_ + 1 < line_.size()) {
      word_ += line_[++at_];
    } else {
      word_ += unit;
    }
  }
  void TakeQuoted(char quote) {
    for (++at_; at_ < line_.size() && line_[at_] != quote; ++at_) {
      const bool escaped = quote == '"' && line_[at_] == '\\' && at_ + 1 < line_.size() &&
                           (line_[at_ + 1] == '"' || line_[at_ + 1] == '\\');
      if (escaped) ++at_;
      word_ += line_[at_];
    }
    if (at_ == line_.size()) throw std::runtime_error(std::string("no closing ") + quote);
  }
  /// "#3" behind other words.
  bool AtNumber() const {
    const auto end = line_.find_first_not_of("0123456789", at_ + 1);
    const bool ends =
        end == std::string::npos || line_[end] == ' ' || line_[end] == '\t' || line_[end] == '\r';
    return !words_.empty() && ends && end != at_ + 1 && at_ + 1 < line_.size();
  }
  void EndWord() {
    if (inWord_) words_.push_back(std::move(word_));
    word_.clear();
    inWord_ = false;
  }

  const std::string& line_;
  std::size_t at_ = 0;
  std::vector<std::string> words_;
  std::string word_;
  bool inWord_ = false;
};

}  // namespace

std::vector<std::string> SplitWords(const std::string& line) { return Splitter(line).Split(); }

}  // namespace brelmon::cli
