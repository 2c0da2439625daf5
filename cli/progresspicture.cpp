// SPDX-License-Identifier: GPL-2.0-or-later
// A bar of hashes behind the message.
#include "cli/progresspicture.h"

#include <algorithm>
#include <iostream>
#include <string>
#include <string_view>

#include "cli/terminal.h"
#include "cli/visibletext.h"

namespace brelmon::cli {
namespace {

constexpr std::string_view kWipe = "\r\x1b[K";
constexpr char kBell = '\a';
constexpr int kCells = 25;

/// Past what would show it.
void Wipe() {
  std::cerr << std::flush;
  std::streambuf& terminal = *VisibleText::Under(std::cerr);
  terminal.sputn(kWipe.data(), static_cast<std::streamsize>(kWipe.size()));
  terminal.pubsync();
}

int PercentOf(const headless::Progress& progress) {
  const auto all = static_cast<std::int64_t>(progress.maximum) - progress.minimum + 1;
  if (all < 1) return 0;
  const auto done = static_cast<std::int64_t>(progress.position) - progress.minimum + 1;
  return static_cast<int>(std::clamp<std::int64_t>(done * 100 / all, 0, 100));
}

}  // namespace

ProgressPicture::ProgressPicture(headless::ProgressBar& bar) : bar_(bar) {
  if (!ErrorsAtTerminal()) return;
  bar_.SetListener([this](const headless::Progress& progress) { Draw(progress); });
}

ProgressPicture::~ProgressPicture() {
  bar_.SetListener({});
  Clear();
}

void ProgressPicture::Clear() {
  if (drawn_) Wipe();
  drawn_ = false;
  percent_ = -1;
}

std::streamsize ProgressPicture::Wiper::xsputn(const char* bytes, std::streamsize count) {
  picture_.Clear();
  if (count == 1 && *bytes == kBell) return VisibleText::Under(std::cerr)->sputn(bytes, count);
  return std::cerr.rdbuf()->sputn(bytes, count);
}

ProgressPicture::Wiper::int_type ProgressPicture::Wiper::overflow(int_type byte) {
  if (traits_type::eq_int_type(byte, traits_type::eof())) return traits_type::not_eof(byte);
  picture_.Clear();
  return std::cerr.rdbuf()->sputc(traits_type::to_char_type(byte));
}

int ProgressPicture::Wiper::sync() { return std::cerr.rdbuf()->pubsync(); }

void ProgressPicture::Draw(const headless::Progress& progress) {
  if (!progress.visible) return Clear();
  const int percent = PercentOf(progress);
  if (percent == percent_) return;
  percent_ = percent;
  drawn_ = true;
  const auto full = static_cast<std::size_t>(percent * kCells / 100);
  Wipe();
  std::cerr << ToUtf8(progress.message) << " [" << std::string(full, '#')
            << std::string(kCells - full, '.') << "] " << percent << '%' << std::flush;
}

}  // namespace brelmon::cli
