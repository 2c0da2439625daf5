// SPDX-License-Identifier: GPL-2.0-or-later
// The kinds of control. Members named User... are what a user does; a view or the headless user
// calls them, and each does nothing where the control isn't usable.
#pragma once

#include "toolkit/buttons.h"
#include "toolkit/combobox.h"
#include "toolkit/label.h"
#include "toolkit/listbox.h"
#include "toolkit/richtextbox.h"
#include "toolkit/textbox.h"
#include "toolkit/treeview.h"
