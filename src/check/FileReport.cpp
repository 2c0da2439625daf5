// SPDX-License-Identifier: GPL-2.0-or-later
// Rules of encoding, line ends and paths.
#include "check/FileReport.h"

#include <algorithm>

#include "check/Spelling.h"
#include "frame/guard.h"
#include "platform/codepage.h"
#include "platform/number.h"
#include "platform/unfinishedmark.h"
#include "util/aml_func_mod.h"

namespace brelmon {
namespace {

const Text kFix =
    u"run check --fix, or save the file as ANSI (Windows-1252) with Windows line ends";

}  // namespace

Text FileReport::EditorLine(std::int32_t line) const { return GeneralText(text_.EditorLine(line)); }

void FileReport::Add(std::int32_t line, Severity grade, Text wrong, Text then, Text mended) {
  findings_.push_back(
      {file_, text_.EditorLine(line), grade, std::move(wrong), std::move(then), std::move(mended)});
}

bool FileReport::Form(bool firstLineMatters) {
  Stopped();
  if (text_.IsUtf16()) {
    Add(1, Severity::Fails, u"the file is saved as UTF-16 (\"Unicode\")",
        u"the tools find nothing in it",
        text_.HasMark() ? kFix : u"save the file as ANSI (Windows-1252) with Windows line ends");
    return false;
  }
  if (text_.HasMark()) {
    Add(1, firstLineMatters ? Severity::Fails : Severity::Note,
        u"the file begins with a byte-order mark, an editor's sign for UTF-8",
        u"the tools take it for letters of the first line (\u00EF\u00BB\u00BF)", kFix);
  }
  if (text_.OnlyLineFeeds()) {
    Add(1, Severity::Fails, u"the lines end in LF only, as on other systems than Windows",
        u"the tools take the whole file for one line and find nothing in it", kFix);
    return false;
  }
  return true;
}

void FileReport::Stopped() {
  const std::string& bytes = text_.Bytes();
  const auto at = bytes.find(kStoppedHere);
  if (at == std::string::npos) return;
  const auto mark = bytes.begin() + static_cast<std::ptrdiff_t>(at);
  const auto ends = std::count(bytes.begin(), mark, '\r');
  Add(static_cast<std::int32_t>(ends) + 1, Severity::Fails,
      u"a program that wrote the file anew was stopped in the middle",
      u"what should follow is missing",
      u"bring the file back from a copy, or add what is missing and delete this line");
}

Text FileReport::Meant(std::int32_t line, const Text& asRead, Severity grade) {
  const Text meant = text_.Meant(asRead);
  if (text_.IsUtf8Line(asRead) && ToWindows1252(asRead) != ToWindows1252(meant)) {
    const Text misfit = FirstMisfit(meant);
    Add(line, grade, u"the line is saved as UTF-8", u"the tools read \"" + asRead + u"\"",
        misfit.empty()
            ? u"saved as ANSI (Windows-1252): " + meant
            : u"write it without \"" + misfit + u"\", which Windows-1252 lacks: " + meant);
  }
  return meant;
}

bool FileReport::HoldsLineFeed(std::int32_t line, const Text& asRead, Severity grade) {
  const auto at = asRead.find(u'\n');
  if (at == Text::npos) return false;
  Add(line, grade, u"the line ends in LF only, unlike the others",
      u"the tools take it and the next for one line",
      u"run check --fix, or press Enter anew behind: " + text_.Meant(asRead.substr(0, at)));
  return true;
}

bool FileReport::HoldsInvisible(std::int32_t line, const Text& text, Severity grade,
                                const Text& then) {
  if (!HasInvisible(text)) return false;
  Add(line, grade, u"an invisible control character stands in the line", then, Visible(text));
  return true;
}

PathVerdict FileReport::Judge(const Text& path) const {
  return JudgePath(module_, {directory_, directory_}, path);
}

bool FileReport::Refused(std::int32_t line, const Text& location) {
  const Text reason = module_.Host ? module_.Host->RefusalToOpen(location) : Text();
  if (reason.empty()) return false;
  Add(line, Severity::Fails, reason, u"the media viewer stops with an error",
      u"take the item out, or bring what it shows as a picture, a film, a document or a page");
  return true;
}

bool FileReport::IsFile(const Text& path) const { return ExistFileDir(directory_ + path); }

bool FileReport::Path(std::int32_t line, const Text& written, const Text& then,
                      const std::function<Text(const Text& path)>& remake) {
  const PathVerdict verdict = Judge(written);
  using Fault = PathVerdict::Fault;
  if (verdict.Is == Fault::None) return true;
  const bool opens = verdict.Is == Fault::Capitals || verdict.Is == Fault::Letters;
  const bool isThere = opens || IsFile(written);
  Text does = then;
  if (verdict.Is == Fault::Folder) does = u"it can't be opened";
  if (verdict.Is == Fault::Elsewhere && isThere) does = u"on another computer " + then;
  if (opens) does = u"the tools find it all the same, other programs may not";
  Add(line, opens ? Severity::Note : Severity::Fails, verdict.Wrong, does,
      verdict.Advice + remake(verdict.Mended));
  return isThere && verdict.Is != Fault::Folder;
}

namespace {

/// Tells where it isn't, and of one whose name comes close.
bool IsInModule(const CheckedModule& module, const Text& directory, const FileNames& names,
                std::vector<Finding>& findings) {
  const Text due(names.Due);
  if (ExistFileDir(directory + due)) return true;
  std::vector<Text> there;
  if (module.Host) there = module.Host->NamesIn(directory);
  const auto doubled = std::find_if(there.begin(), there.end(), [&](const Text& name) {
    return EqualNoCase(name, due + u".txt") || EqualNoCase(name + u".txt", due);
  });
  const auto meant = doubled == there.end() ? Nearest(due, there, 2) : *doubled;
  if (meant) {
    findings.push_back({*meant, 1, Severity::Fails, u"the file's name is not " + due,
                        Text(names.Then), u"rename it to " + due});
  } else {
    findings.push_back({due, 1, Severity::Note, u"there is no such file", Text(names.Then),
                        Text(names.Otherwise)});
  }
  return false;
}

}  // namespace

std::optional<ModuleText> ReadInModule(const CheckedModule& module, const Text& directory,
                                       const FileNames& names, std::vector<Finding>& findings) {
  if (!IsInModule(module, directory, names, findings)) return {};
  std::optional<ModuleText> text;
  const Text due(names.Due);
  const std::int32_t failed =
      Guard::Ignore([&] { text = ModuleText::Read(*module.Files, directory + due); });
  if (!text) {
    findings.push_back({due, 1, Severity::Fails,
                        u"the file can't be read: " + DescriptionOf(failed),
                        u"the tools stop with an error", u"let everybody read it"});
  }
  return text;
}

}  // namespace brelmon
