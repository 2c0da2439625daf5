// SPDX-License-Identifier: GPL-2.0-or-later
// Reading lines, and completing names in them.
#include "cli/prompt.h"

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <memory>

#include <readline/history.h>
#include <readline/readline.h>

#include "cli/completion.h"
#include "cli/terminal.h"
#include "cli/words.h"

namespace brelmon::cli {
namespace {

/// Gives lines until there are no more.
class LineReader {
 public:
  virtual ~LineReader() = default;
  virtual bool Next(std::string& line) = 0;
  /// What stands before a message.
  virtual std::string Where() const { return {}; }
};

class PipeReader : public LineReader {
 public:
  bool Next(std::string& line) override {
    ++number_;
    return static_cast<bool>(std::getline(std::cin, line));
  }
  std::string Where() const override { return "line " + std::to_string(number_) + ": "; }

 private:
  int number_ = 0;
};

/// One at a time: the library that edits lines has one state for the process.
class PromptReader : public LineReader {
 public:
  explicit PromptReader(Session& session) : completer_(session) {
    std::setlocale(LC_CTYPE, "");
    current_ = &completer_;
    rl_readline_name = "brelmon";
    rl_completer_quote_characters = "\"'";
    rl_completer_word_break_characters = " \t";
    rl_char_is_quoted_p = [](char* line, int at) {
      return static_cast<int>(at > 0 && line[at - 1] == '\\');
    };
    rl_attempted_completion_function = [](const char* text, int start, int) {
      rl_attempted_completion_over = 1;
      current_->Look(std::string(rl_line_buffer, static_cast<std::size_t>(start)), text,
                     rl_completion_quote_character != 0);
      return rl_completion_matches(text, [](const char*, int state) -> char* {
        const auto& found = current_->Found();
        const auto at = static_cast<std::size_t>(state == 0 ? (next_ = 0) : ++next_);
        return at < found.size() ? ::strdup(found[at].c_str()) : nullptr;
      });
    };
  }
  ~PromptReader() override {
    rl_attempted_completion_function = nullptr;
    current_ = nullptr;
    clear_history();
  }

  bool Next(std::string& line) override {
    const std::unique_ptr<char, void (*)(void*)> read(::readline("brelmon> "), std::free);
    if (!read) {
      std::cout << std::endl;
      return false;
    }
    line = read.get();
    if (line.find_first_not_of(" \t") != std::string::npos) add_history(read.get());
    return true;
  }

 private:
  Completer completer_;
  inline static Completer* current_ = nullptr;
  inline static int next_ = 0;
};

}  // namespace

int RunSession(Session& session, const Choices& outer) {
  std::unique_ptr<LineReader> reader;
  if (AtTerminal()) {
    reader = std::make_unique<PromptReader>(session);
  } else {
    reader = std::make_unique<PipeReader>();
  }
  int worst = kDone;
  for (std::string text; reader->Next(text);) {
    int status = kUsage;
    try {
      const auto words = SplitWords(text);
      if (words.empty()) continue;
      if (words.size() == 1 && (words[0] == "quit" || words[0] == "exit")) break;
      status = RunLine(session, ParseLine(words, reader->Where()), outer, reader->Where());
    } catch (const std::runtime_error& reason) {
      std::cerr << "brelmon: " << reader->Where() << reason.what() << std::endl;
    }
    worst = std::max(worst, status);
  }
  return worst;
}

}  // namespace brelmon::cli
