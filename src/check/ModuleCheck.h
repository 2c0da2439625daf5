// SPDX-License-Identifier: GPL-2.0-or-later
// The module check: reads a module with the tools' own readers and tells what would go wrong.
#pragma once

#include "check/CheckHost.h"
#include "check/Finding.h"
#include "platform/map.h"
#include "platform/services.h"

namespace brelmon {

struct CheckedModule {
  Text DocumentPath;          // full path of the map document
  Ref<IMxDocument> Document;  // unset: its layers and tables are not looked at
  IFileSystem* Files = nullptr;
  brelmon::Locale Locale;
  ICheckHost* Host = nullptr;  // unset: layer files, data sources and queries are not looked at
};

/// All findings: QuickLoad.txt, media_list.txt, then the document, each by line. While it runs, the
/// process's services are those of the module. A file that can't be read is a finding too.
std::vector<Finding> CheckModule(const CheckedModule& module);

struct Fixed {
  Text File;     // name without folder
  Text Copy;     // full path of what the file was; empty if nothing was changed
  Text Refusal;  // why it was left alone; empty if it wasn't
};

/// Rewrites encodings and line ends of the two text files, nothing else, and keeps a copy of what
/// it changes. A text that Windows-1252 can't hold, or whose encoding can only be guessed, is
/// refused and stays as it is. Names only the files that it changed or refused.
std::vector<Fixed> FixModule(const CheckedModule& module);

}  // namespace brelmon
