// SPDX-License-Identifier: GPL-2.0-or-later
// A printer that writes a text file.
#pragma once

#include <string>

#include "platform/services.h"

namespace brelmon::headless {

/// Writes UTF-8 with LF line ends when a document ends; a later document of the session follows
/// behind a form feed. Without a file every call fails with 482.
class TextFilePrinter : public IPrinter {
 public:
  /// To the file that the environment's BRELMON_PRINTER names, if any.
  TextFilePrinter();
  void SetFile(std::string systemPath);

  void SetFontSize(double points) override;
  void Print(const Text& text) override;
  void EndDoc() override;

 private:
  void CheckReady() const;

  std::string file_;
  std::string document_;
  bool written_ = false;
};

}  // namespace brelmon::headless
