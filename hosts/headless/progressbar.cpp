// SPDX-License-Identifier: GPL-2.0-or-later
// Progress, told at each change.
#include "hosts/headless/progressbar.h"

namespace brelmon::headless {

void ProgressBar::ShowProgressBar(const Text& message, std::int32_t minimum, std::int32_t maximum,
                                  std::int32_t step, bool) {
  now_ = {message, minimum, maximum, step, minimum, true};
  Tell();
}

void ProgressBar::StepProgressBar() {
  if (!now_.visible) return;
  now_.position =
      now_.position > now_.maximum - now_.step ? now_.maximum : now_.position + now_.step;
  Tell();
}

void ProgressBar::HideProgressBar() {
  now_.visible = false;
  Tell();
}

}  // namespace brelmon::headless
