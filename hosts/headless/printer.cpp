// SPDX-License-Identifier: GPL-2.0-or-later
// Documents gather in memory and reach the file whole.
#include "hosts/headless/printer.h"

#include <cstdlib>
#include <fstream>

#include "hosts/common/hostfailure.h"
#include "hosts/headless/console.h"

namespace brelmon::headless {

TextFilePrinter::TextFilePrinter() {
  if (const char* file = std::getenv("BRELMON_PRINTER")) file_ = file;
}

void TextFilePrinter::SetFile(std::string systemPath) {
  file_ = std::move(systemPath);
  document_.clear();
  written_ = false;
}

void TextFilePrinter::CheckReady() const {
  if (file_.empty()) host::Fail(failure::kPrinter);
}

void TextFilePrinter::SetFontSize(double) { CheckReady(); }

void TextFilePrinter::Print(const Text& text) {
  CheckReady();
  document_ += ForStream(text) + '\n';
}

void TextFilePrinter::EndDoc() {
  CheckReady();
  std::ofstream out(file_, written_ ? std::ios::app | std::ios::binary : std::ios::binary);
  if (written_) out << '\f';
  out << document_ << std::flush;
  document_.clear();
  if (!out) host::Fail(failure::kPrinter, "The printer's file can't be written: " + file_);
  written_ = true;
}

}  // namespace brelmon::headless
