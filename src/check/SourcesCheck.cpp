// SPDX-License-Identifier: GPL-2.0-or-later
// Data sources as they are written, against the disk and other computers.
#include "check/SourcesCheck.h"

#include <algorithm>

#include "check/PathCheck.h"
#include "frame/guard.h"

namespace brelmon {
namespace {

using Fault = PathVerdict::Fault;

Text ThenOf(Fault fault) {
  switch (fault) {
    case Fault::NotThere:
      return u"the tools leave it out or refuse it";
    case Fault::Capitals:
      return u"QGIS on Linux can't open it";
    case Fault::Letters:
      return u"on another computer it may be gone";
    default:
      return u"on another computer it is gone";
  }
}

/// The judgement of one source's path; of backslashes where nothing else is wrong with it.
PathVerdict Judge(const CheckedModule& module, const PathRules& rules, const Text& path) {
  PathVerdict verdict = JudgePath(module, rules, path);
  if (verdict.Is != Fault::None || path.find(u'\\') == Text::npos) return verdict;
  Text forward = path;
  std::replace(forward.begin(), forward.end(), u'\\', u'/');
  return {Fault::Capitals, u"the path is written with backslashes", {}, forward};
}

/// As an XML file has it.
Text Escaped(const Text& text) {
  Text escaped;
  for (const char16_t unit : text) {
    escaped += unit == u'&'   ? u"&amp;"
               : unit == u'<' ? u"&lt;"
               : unit == u'>' ? u"&gt;"
                              : Text(1, unit);
  }
  return escaped;
}

}  // namespace

std::set<Text> CheckSources(const CheckedModule& module, const Text& directory, const Text& file,
                            std::vector<Finding>& findings) {
  std::vector<WrittenSource> sources;
  // A file that can't be read shows itself when it is opened.
  if (module.Host) Guard::Ignore([&] { sources = module.Host->SourcesIn(file); });
  Text name = file.substr(directory.size());
  std::replace(name.begin(), name.end(), u'\\', u'/');
  const PathRules rules{directory, file.substr(0, file.find_last_of(u"\\/") + 1), true};
  std::set<Text> gone;
  for (const WrittenSource& source : sources) {
    const PathVerdict verdict = Judge(module, rules, source.Path);
    if (verdict.Is == Fault::None) continue;
    gone.insert(source.Layer);
    Text whole = source.Whole;
    whole.replace(std::min(whole.find(source.Path), whole.size()), source.Path.size(),
                  verdict.Mended);
    findings.push_back(
        {name, source.Line, verdict.Is == Fault::Letters ? Severity::Note : Severity::Fails,
         u"the data of the layer \"" + source.Layer + u"\": " + verdict.Wrong, ThenOf(verdict.Is),
         verdict.Advice + u"<datasource>" + Escaped(whole) + u"</datasource>"});
  }
  return gone;
}

}  // namespace brelmon
