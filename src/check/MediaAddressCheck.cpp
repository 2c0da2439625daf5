// SPDX-License-Identifier: GPL-2.0-or-later
// Schemes, files under the kind code of web pages, shortcut files.
#include "check/MediaAddressCheck.h"

#include <algorithm>

#include "check/MediaExtensions.h"
#include "check/MediaSlips.h"
#include "check/Spelling.h"
#include "frame/guard.h"
#include "platform/codepage.h"

namespace brelmon {
namespace {

void FileAsAddress(const MediaItem& item, Text file, FileReport& report) {
  if (FindNoCase(file, u"file:") == 0) {
    const auto at = std::min(file.find_first_not_of(u"/", 5), file.size());
    file = at > 5 ? file.substr(at - 1) : file.substr(5);
  }
  const bool shortcut = EqualNoCase(file.substr(std::min(file.rfind(u'.'), file.size())), u".url");
  if (shortcut) file.replace(file.size() - 4, 4, u".url");
  const PathVerdict verdict = report.Judge(file);
  const bool here = verdict.Is == PathVerdict::Fault::None || verdict.Mended.empty();
  const Text path = here ? file : verdict.Mended;
  report.Add(item.Line, Severity::Fails,
             u"kind code 3 takes \"" + item.Written + u"\" for a web address",
             u"the media viewer doesn't look for it beside the document",
             (here ? u"" : verdict.Advice) +
                 MediaLine(item.Name, path, shortcut ? Text(u"3") : CodeFor(path)));
}

}  // namespace

void CheckAddress(const MediaItem& item, FileReport& report) {
  const Text& written = item.Written;
  const Text bare = Trim(Visible(written));
  const bool drive = bare.size() > 1 && bare[1] == u':';
  if (drive || FindNoCase(bare, u"file:") == 0 || bare.starts_with(u"\\") ||
      (bare.find(u"//") == Text::npos && report.IsFile(bare))) {
    return FileAsAddress(item, bare, report);
  }
  const Text due = WithScheme(bare);
  if (!due.empty()) {
    return report.Add(item.Line, Severity::Fails, u"the web address begins wrong: " + written,
                      u"no program opens it", MediaLine(item.Name, due, u"3"));
  }
  if (bare == written) return;
  report.Add(item.Line, Severity::Fails, u"blanks stand around the web address",
             u"no program opens it", MediaLine(item.Name, bare, u"3"));
}

void CheckShortcut(const MediaItem& item, FileReport& report) {
  Text content;
  Guard::Ignore([&] {
    content = FromWindows1252(FileSystem().Open(item.Location, FileMode::Input)->Read(65536));
  });
  if (FindNoCase(content, u"url=http") != Text::npos ||
      FindNoCase(content, u"url=ftp") != Text::npos) {
    return;
  }
  report.Add(item.Line, Severity::Fails, u"the shortcut names no web page",
             u"the media viewer opens nothing",
             u"write into " + item.Written +
                 u" the two lines [InternetShortcut] and "
                 u"URL=http://example.org/ (for example)");
}

}  // namespace brelmon
