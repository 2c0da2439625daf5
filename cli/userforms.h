// SPDX-License-Identifier: GPL-2.0-or-later
// A user's grip on the tools' forms: controls by name, rows by text, closing.
#pragma once

#include <vector>

#include "cli/refusal.h"
#include "toolkit/controls.h"

namespace brelmon::cli {

/// A form of the tools and the action that works it.
struct FormAction {
  TextView Form;
  const char* Action;
};
inline constexpr FormAction kFormActions[] = {
    {u"brelmon_ThemeIDDialog", "the action statistics"},
    {u"brelmon_ModQueryDialog", "the actions query and values"},
    {u"frm_Brelmon_Summarize", "the action summarize"},
    {u"brelmon_QuickJumpDialog", "the action quickload"},
    {u"frm_InputSpatialBookmark", "the action quickload add-bookmark"},
    {u"frm_InputQuery", "the action quickload add-query"},
    {u"frm_QLDelete", "the action quickload delete"},
    {u"brelmon_MediaDialog", "the action media"},
    {u"frmAbout", "the action about"},
};
/// A click opens one catalog dialog at most; another is refused, too.
inline constexpr int kMostCatalogDialogs = 2;

/// The control of that name as the kind it must be.
template <class Kind>
Kind& Get(Form& form, TextView name) {
  return dynamic_cast<Kind&>(form.ControlNamed(name));
}

/// Leaves by Escape where the form has a cancel button, else by the title bar.
void Dismiss(Form& form);

/// All rows of a list.
std::vector<Text> RowsOf(ListBox& list);

/// Clicks a button; refuses with `reason` where a user could not.
void Press(Form& form, TextView button, const std::string& reason);

/// Replaces all of a box's text by typing.
void TypeOver(TextBox& box, const Text& text);

}  // namespace brelmon::cli
