// SPDX-License-Identifier: GPL-2.0-or-later
// All rules over one module, and the repair of its text files.
#include "check/ModuleCheck.h"

#include <algorithm>
#include <tuple>

#include "check/DocumentCheck.h"
#include "check/MediaListCheck.h"
#include "check/ModuleText.h"
#include "check/QuickLoadCheck.h"
#include "media/MediaList.h"
#include "quickload/QuickLoadFile.h"
#include "util/aml_func_mod.h"

namespace brelmon {
namespace {

/// The module's services in place of the process's.
Services ServicesOf(const CheckedModule& module) {
  Services services = CurrentServices();
  services.files = module.Files;
  services.locale = module.Locale;
  return services;
}

/// Not by the tools' own way, which an apostrophe leads astray.
Text DirectoryOf(const Text& documentPath) {
  return documentPath.substr(0, documentPath.rfind(u'\\') + 1);
}

void Write(IFileSystem& files, const Text& path, const std::string& bytes) {
  const auto stream = files.Open(path, FileMode::Output);
  stream->Write(bytes);
  stream->Close();
}

}  // namespace

std::vector<Finding> CheckModule(const CheckedModule& module) {
  const ServicesScope scope(ServicesOf(module));
  const Text directory = DirectoryOf(module.DocumentPath);
  std::vector<Finding> findings;
  const auto inOrder = [&](auto check) {
    const auto first = static_cast<std::ptrdiff_t>(findings.size());
    check(module, directory, findings);
    std::stable_sort(findings.begin() + first, findings.end(),
                     [](const Finding& left, const Finding& right) {
                       return std::tie(left.File, left.Line) < std::tie(right.File, right.Line);
                     });
  };
  inOrder(CheckQuickLoad);
  inOrder(CheckMediaList);
  inOrder(CheckDocument);
  return findings;
}

std::vector<Fixed> FixModule(const CheckedModule& module) {
  const ServicesScope scope(ServicesOf(module));
  const Text directory = DirectoryOf(module.DocumentPath);
  std::vector<Fixed> all;
  for (const TextView name : {QuickLoadFile::kFileName, kMediaListName}) {
    const Text path = directory + Text(name);
    if (!ExistFileDir(path)) continue;
    const ModuleText text = ModuleText::Read(*module.Files, path);
    const auto repaired = text.Repaired();
    if (!repaired) {
      all.push_back({Text(name), {}, text.WhyNotRepaired()});
    } else if (*repaired != text.Bytes()) {
      const Text copy = MakeUniqueFilename(path);
      Write(*module.Files, copy, text.Bytes());
      Write(*module.Files, path, *repaired);
      all.push_back({Text(name), copy, {}});
    }
  }
  return all;
}

}  // namespace brelmon
