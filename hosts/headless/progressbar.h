// SPDX-License-Identifier: GPL-2.0-or-later
// The status bar.
#pragma once

#include <functional>

#include "platform/map.h"

namespace brelmon::headless {

/// What the status bar shows.
struct Progress {
  Text message;
  std::int32_t minimum = 0, maximum = 0, step = 1, position = 0;
  bool visible = false;
};

class ProgressBar : public IStatusBar {
 public:
  /// Called after each change, to draw it.
  void SetListener(std::function<void(const Progress&)> listener) {
    listener_ = std::move(listener);
  }
  const Progress& Now() const { return now_; }

  void ShowProgressBar(const Text& message, std::int32_t minimum, std::int32_t maximum,
                       std::int32_t step, bool onePanel) override;
  void StepProgressBar() override;
  void HideProgressBar() override;

 private:
  void Tell() const {
    if (listener_) listener_(now_);
  }
  Progress now_;
  std::function<void(const Progress&)> listener_;
};

}  // namespace brelmon::headless
