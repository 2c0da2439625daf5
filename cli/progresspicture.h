// SPDX-License-Identifier: GPL-2.0-or-later
// The status bar's progress, drawn at a terminal.
#pragma once

#include <ostream>
#include <streambuf>

#include "hosts/headless/progressbar.h"

namespace brelmon::cli {

/// One line on standard error, drawn again and again and wiped at the end. Nothing anywhere else
/// than at a terminal.
class ProgressPicture {
 public:
  explicit ProgressPicture(headless::ProgressBar& bar);
  ~ProgressPicture();
  ProgressPicture(const ProgressPicture&) = delete;
  ProgressPicture& operator=(const ProgressPicture&) = delete;
  /// Wipes a bar that a failure left standing.
  void Clear();
  /// Standard error for whoever writes while a bar may stand: wipes it first.
  std::ostream& Errors() { return errors_; }

 private:
  /// Passes on what is written, on a clean line.
  class Wiper : public std::streambuf {
   public:
    explicit Wiper(ProgressPicture& picture) : picture_(picture) {}

   protected:
    std::streamsize xsputn(const char* bytes, std::streamsize count) override;
    int_type overflow(int_type byte) override;
    int sync() override;

   private:
    ProgressPicture& picture_;
  };

  void Draw(const headless::Progress& progress);
  headless::ProgressBar& bar_;
  bool drawn_ = false;
  int percent_ = -1;
  Wiper wiper_{*this};
  std::ostream errors_{&wiper_};
};

}  // namespace brelmon::cli
