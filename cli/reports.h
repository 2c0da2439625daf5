// SPDX-License-Identifier: GPL-2.0-or-later
// Report windows: reading, printing, closing.
#pragma once

#include <vector>

#include "cli/session.h"

namespace brelmon::cli {

/// Prints with LF line ends and one behind the last line.
void PrintText(const Text& text);
/// Each as PrintText prints it.
void PrintTexts(const std::vector<Text>& texts);

/// The report in the window beside the host; unset where it isn't on the screen.
std::shared_ptr<Form> ShownReport(Session& session);
/// As a user's click on its Exit.
void CloseReport(Session& session);
/// What a report form, modal or not, says.
Text ReportText(Form& report);

/// A user who prints each modal report and leaves it; reports with the caption `complaint` go to
/// standard error, as "[Caption] text", and are counted.
Hands ReadReports(const Text& complaint = {}, int* complaints = nullptr);

}  // namespace brelmon::cli
