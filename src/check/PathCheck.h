// SPDX-License-Identifier: GPL-2.0-or-later
// The rules of a path in a module's files: it starts in the module, stays there, and is spelt as
// the file is.
#pragma once

#include "check/ModuleCheck.h"

namespace brelmon {

struct PathVerdict {
  enum class Fault { None, NotThere, Elsewhere, Folder, Capitals, Letters };
  Fault Is = Fault::None;
  Text Wrong;   // in words; empty for None
  Text Advice;  // what to do before the line is mended, with its closing blank; may be empty
  Text Mended;  // the path as its author would write it
};

/// What a path counts from, and what it may be.
struct PathRules {
  Text Module;            // the document's folder, with its closing backslash
  Text Base;              // the folder that the path counts from, likewise
  bool IsSource = false;  // of a map document: a leading slash makes it absolute, folders are legal
};

/// `written` is the path as it stands in the file.
PathVerdict JudgePath(const CheckedModule& module, const PathRules& rules, const Text& written);

}  // namespace brelmon
