// SPDX-License-Identifier: GPL-2.0-or-later
// Rules of encoding, line ends and paths.
#include "check/FileReport.h"

#include <algorithm>

#include "frame/guard.h"
#include "platform/codepage.h"
#include "platform/number.h"
#include "util/aml_func_mod.h"

namespace brelmon {
namespace {

const Text kFix = u"run check --fix, or save the file as Windows-1252 (ANSI) with CR LF line ends";

Text LastComponent(const Text& path) {
  const auto slash = path.find_last_of(u"\\/");
  return slash == Text::npos ? path : path.substr(slash + 1);
}

bool IsAbsolute(const Text& path) {
  return (path.size() > 1 && path[1] == u':') || path.starts_with(u"\\") || path.starts_with(u"/");
}

}  // namespace

Text FileReport::EditorLine(std::int32_t line) const { return GeneralText(text_.EditorLine(line)); }

void FileReport::Add(std::int32_t line, Severity grade, Text wrong, Text then, Text mended) {
  findings_.push_back(
      {file_, text_.EditorLine(line), grade, std::move(wrong), std::move(then), std::move(mended)});
}

bool FileReport::Form(bool firstLineMatters) {
  if (text_.IsUtf16()) {
    Add(1, Severity::Fails, u"the file is encoded as UTF-16 (\"Unicode\")",
        u"the tools find nothing in it", kFix);
    return false;
  }
  if (text_.HasMark()) {
    Add(1, firstLineMatters ? Severity::Fails : Severity::Note,
        u"the file begins with a byte-order mark",
        u"the tools take it for letters of the first line (\u00EF\u00BB\u00BF)", kFix);
  }
  if (text_.OnlyLineFeeds()) {
    Add(1, Severity::Fails, u"the lines end in LF only",
        u"the tools take the whole file for one line and find nothing in it", kFix);
    return false;
  }
  return true;
}

Text FileReport::Meant(std::int32_t line, const Text& asRead, Severity grade) {
  const Text meant = text_.Meant(asRead);
  if (text_.IsUtf8Line(asRead) && ToWindows1252(asRead) != ToWindows1252(meant)) {
    Add(line, grade, u"the line is encoded as UTF-8", u"the tools read \"" + asRead + u"\"",
        FitsWindows1252(meant) ? u"as Windows-1252: " + meant
                               : u"write it with letters that Windows-1252 has: " + meant);
  }
  const auto lineFeed = meant.find(u'\n');
  if (lineFeed != Text::npos) {
    Add(line, grade, u"the line ends in LF only", u"the tools take it and the next for one line",
        kFix);
  }
  return meant;
}

bool FileReport::Exists(const Text& path) const {
  return Guard::Ignore([&] { files_.Attributes(path); }) == 0;
}

void FileReport::File(std::int32_t line, const Text& written, const Text& full, const Text& then,
                      const std::function<Text(const Text& path)>& remake) {
  constexpr std::int32_t kFolder = 16;
  std::int32_t attributes = -1;
  Guard::Ignore([&] { attributes = files_.Attributes(full); });
  if (attributes == -1) return Missing(line, written, then, remake);
  if (attributes & kFolder) {
    return Add(line, Severity::Fails, u"the path is that of a folder", u"it can't be opened",
               remake(written + u"\\FILE"));
  }
  Text actual, meant = full;
  std::replace(meant.begin(), meant.end(), u'/', u'\\');
  Guard::Ignore([&] { files_.GetLongPathName(full, actual); });
  if (!EqualNoCase(actual, meant)) return;
  const Text path = actual.substr(directory_.size());
  if (path == meant.substr(directory_.size())) return;
  Add(line, Severity::Note, u"the file's name has other capitals: " + path,
      u"the tools find it all the same, other programs may not", remake(path));
}

void FileReport::Missing(std::int32_t line, const Text& written, const Text& then,
                         const std::function<Text(const Text& path)>& remake) {
  const Text trimmed = Trim(written);
  if (FindNoCase(written, directory_) == 0) {
    return Add(line, Severity::Fails,
               u"the path is absolute, where one from the document's folder is wanted", then,
               remake(written.substr(directory_.size())));
  }
  if (IsAbsolute(written)) {
    return Add(line, Severity::Fails,
               u"the path is absolute, where one from the document's folder is wanted", then,
               u"copy the file to the module and write: " + remake(LastComponent(written)));
  }
  if (trimmed != written && !trimmed.empty() && Exists(directory_ + trimmed)) {
    return Add(line, Severity::Fails, u"blanks stand around the path", then, remake(trimmed));
  }
  Add(line, Severity::Fails, u"there is no such file: \"" + written + u"\"", then,
      u"put the file there, or write: " + remake(u"PATH"));
}

}  // namespace brelmon
