// SPDX-License-Identifier: GPL-2.0-or-later
// The dialog that tells of failures. Its window outlives the plug-in.
#pragma once

#include <functional>
#include <memory>

#include "platform/services.h"

namespace brelmon::qgis {

Ref<IErrorDialog> NewErrorDialog();

/// Counts the times that the dialog is asked for while it lives; `quiet` keeps it from showing.
class QuietErrors {
 public:
  explicit QuietErrors(bool quiet);
  ~QuietErrors();
  QuietErrors(const QuietErrors&) = delete;
  QuietErrors& operator=(const QuietErrors&) = delete;
  int Count() const;

 private:
  std::shared_ptr<struct Errors> errors_;
  bool before_;
  int countBefore_;
};

/// Tells why the user's turn was ended, in place of all that failed for it; once. False while the
/// turn goes on.
bool TellEndOfTurn();
/// A failure that no tool has told of: in QGIS's message bar.
void TellFailure(const Text& reason);
/// Runs a turn of the user; tells of a failure that comes out of it.
void InTurn(const std::function<void()>& deed);

bool ErrorDialogIsOpen();
/// Runs when the user has closed the dialog; unset to be told no more.
void WhenErrorDialogCloses(std::function<void()> closed);

}  // namespace brelmon::qgis
