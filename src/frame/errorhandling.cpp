// SPDX-License-Identifier: GPL-2.0-or-later
// The error trail, and the two ways in which a guard block reports to it.
#include "frame/errorhandling.h"

#include <string_view>

#include "frame/guard.h"
#include "platform/number.h"
#include "platform/services.h"

namespace brelmon {
namespace ErrorHandling {
namespace {

bool trailInProgress = false;

/// Made at the first failure that is shown, kept to the end of the process.
Ref<IErrorDialog>& TrailDialog() {
  static Ref<IErrorDialog> dialog;
  return dialog;
}

constexpr std::int32_t kModeDialog = 4;
constexpr std::int32_t kModeMessageWithParent = 3;

void ShowTrailDialog(const Text& label, const Text& description, std::int32_t /*parentWindow*/) {
  if (!TrailDialog()) TrailDialog() = HostObjects().NewErrorDialog();
  TrailDialog()->SetText(u"Record Call Stack Sequence - Bottom line is error line.\r\n\r\n\t" +
                         label + u"\r\n" + description);
  TrailDialog()->SetVisible(true);
}

void ShowTrailMessage(const Text& label, const Text& description) {
  Beep();
  MsgBox(
      u"An error has occured in the application.   Record the call stack sequence\r\n"
      u"and the description of the error.\r\n\r\nError Call Stack Sequence \r\n\t" +
          label + u"\r\n" + description,
      box::kExclamation, u"Unexpected Program Error");
}

/// `result` is for an answer that asks to raise the failure again; no display gives one.
void ShowTrailMessageWithParent(const Text& label, const Text& description,
                                std::int32_t /*parentWindow*/, bool& /*result*/) {
  ShowTrailMessage(label, description);
}

[[noreturn]] void RaiseAgain(const Text& label, std::int32_t number, const Text& source,
                             const Text& description) {
  trailInProgress = true;
  throw Failure(number, source, u"\t" + label + u"\r\n" + description);
}

}  // namespace

Text ErrorLineText(std::int32_t line) {
  return line == 0 ? Text() : u"Line : " + GeneralText(line);
}

void ReportTrailError(bool isTop, const Text& label, std::int32_t number, const Text& source,
                      const Text& description, std::int32_t mode, std::int32_t parentWindow,
                      std::int16_t /*extra1*/, std::int16_t /*extra2*/, std::int16_t /*extra3*/) {
  // Built once, at the lowest guard block that sees the failure.
  const Text trail = trailInProgress ? description
                                     : u"\r\nError Number \r\n\t" + GeneralText(number) +
                                           u"\r\nDescription\r\n\t" + description + u"\r\n\r\n";
  if (!isTop) RaiseAgain(label, number, source, trail);
  trailInProgress = false;
  if (mode == kModeDialog) return ShowTrailDialog(label, trail, parentWindow);
  if (mode == kModeMessageWithParent) {
    bool result = false;
    ShowTrailMessageWithParent(label, trail, parentWindow, result);
    if (result) RaiseAgain(label, number, source, trail);
    return;
  }
  ShowTrailMessage(label, trail);  // mode 2, and any other
}

bool TrailInProgress() { return trailInProgress; }

void Reset() {
  trailInProgress = false;
  TrailDialog().Reset();
}

}  // namespace ErrorHandling

namespace Guard::detail {
namespace {

/// What a label says behind the procedure's name: its module, and the line of the failing statement
/// where that stands in the same module.
Text PlaceIn(const char* module, const Failure& failed) {
  const bool here = std::string_view(failed.File) == module;
  return FromUtf8(module) + u" " + ErrorHandling::ErrorLineText(here ? failed.Line : 0);
}

}  // namespace

void Report(bool isTop, TextView procedure, const char* file) {
  const Failure failed = CurrentFailure();
  const Text label = Text(procedure) + u" " + PlaceIn(file, failed);
  ErrorHandling::ReportTrailError(isTop, label, failed.Number, failed.Source, failed.Description, 4,
                                  0, 0, 0, 0);
}

void ReportPlainBox(const char* file) {
  const Failure failed = CurrentFailure();
  MsgBox(Text(kPlainBoxLabel) + u" " + PlaceIn(file, failed) + u"\r\n" +
         GeneralText(failed.Number) + u"\r\n" + failed.Source + u"\r\n" + failed.Description);
}

}  // namespace Guard::detail
}  // namespace brelmon
