// SPDX-License-Identifier: GPL-2.0-or-later
// The status bar's progress, drawn at a terminal.
#pragma once

#include "hosts/headless/application.h"

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

 private:
  void Draw(const headless::Progress& progress);
  headless::ProgressBar& bar_;
  bool drawn_ = false;
  int percent_ = -1;
};

}  // namespace brelmon::cli
