// SPDX-License-Identifier: GPL-2.0-or-later
// Paths against the disk.
#include "check/PathCheck.h"

#include <algorithm>

#include "check/Spelling.h"
#include "frame/guard.h"
#include "util/aml_func_mod.h"

namespace brelmon {
namespace {

using Fault = PathVerdict::Fault;

bool IsSeparator(char16_t unit) { return unit == u'\\' || unit == u'/'; }

Text WithBackslashes(Text path) {
  std::replace(path.begin(), path.end(), u'/', u'\\');
  return path;
}

std::vector<Text> Components(const Text& path) {
  std::vector<Text> parts(1);
  for (const char16_t unit : path) {
    if (IsSeparator(unit)) {
      parts.emplace_back();
    } else {
      parts.back() += unit;
    }
  }
  std::erase_if(parts, [](const Text& part) { return part.empty() || part == u"."; });
  return parts;
}

Text LastComponent(const Text& path) {
  const auto slash = path.find_last_of(u"\\/");
  return slash == Text::npos ? path : path.substr(slash + 1);
}

/// ".." taken away by its letters.
Text Resolved(const Text& path) {
  std::vector<Text> parts;
  for (const Text& part : Components(path)) {
    if (part != u"..") {
      parts.push_back(part);
    } else if (parts.size() > 1) {
      parts.pop_back();
    }
  }
  Text whole;
  for (const Text& part : parts) whole += (whole.empty() ? u"" : u"\\") + part;
  return whole;
}

/// `written` with the letters of `actual`, from the end on as long as they differ in case alone.
Text InLettersOf(Text written, const Text& actual) {
  auto to = written.rbegin();
  for (auto from = actual.rbegin(); to != written.rend() && from != actual.rend(); ++to, ++from) {
    if (IsSeparator(*to) && IsSeparator(*from)) continue;
    if (FoldCase(*to) != FoldCase(*from)) break;
    *to = *from;
  }
  return written;
}

class PathJudge {
 public:
  PathJudge(const CheckedModule& module, const PathRules& rules, const Text& written)
      : module_(module),
        rules_(rules),
        written_(written),
        full_(rules.Base + WithBackslashes(written)) {}

  PathVerdict Judge() const {
    if (Trim(Visible(written_)).empty()) {
      return {Fault::NotThere, u"the path is missing", {}, {}};
    }
    if (IsAbsolute()) return Absolute();
    if (LeavesTheModule()) return Leaving();
    const std::int32_t attributes = AttributesOf(full_);
    if (attributes == kNothing) return Missing();
    if ((attributes & kFolder) != 0 && !rules_.IsSource) return Folder();
    return Spelt();
  }

 private:
  static constexpr std::int32_t kNothing = -1, kFolder = 16;

  std::int32_t AttributesOf(const Text& path) const {
    std::int32_t attributes = kNothing;
    Guard::Ignore([&] { attributes = module_.Files->Attributes(path); });
    return attributes;
  }

  bool IsAbsolute() const {
    if (written_.starts_with(u"\\\\") || written_.starts_with(u"//")) return true;
    if (FindNoCase(written_, u"file:") == 0 || (written_.size() > 1 && written_[1] == u':')) {
      return true;
    }
    // The tools join folder and path, so that a leading slash alone does no harm.
    return IsSeparator(written_[0]) && (rules_.IsSource || AttributesOf(full_) == kNothing);
  }

  PathVerdict Absolute() const {
    const Text path = WithBackslashes(written_);
    // "/home/ada/module/" is how the author's own system writes the module's folder.
    for (const Text& folder : {rules_.Module, rules_.Module.substr(2)}) {
      const auto at = FindNoCase(path, folder);
      if (at != Text::npos) {
        return {Fault::Elsewhere,
                u"the path is absolute and holds for this computer alone",
                {},
                FromBase(path.substr(at + folder.size()))};
      }
    }
    return {Fault::Elsewhere, u"the path is absolute and leads out of the module's folder",
            u"copy the file into the module and write: ", FromBase(LastComponent(written_))};
  }

  /// A path below the module's folder as one that counts from the base, with the author's slashes.
  Text FromBase(const Text& below) const {
    Text path = rules_.IsSource && rules_.Base == rules_.Module ? u"./" : u"";
    for (std::size_t i = Components(rules_.Base).size(); i > Components(rules_.Module).size();
         --i) {
      path += u"..\\";
    }
    path += below;
    const bool forward = rules_.IsSource || written_.find(u'/') != Text::npos;
    if (forward) std::replace(path.begin(), path.end(), u'\\', u'/');
    return path;
  }

  bool LeavesTheModule() const {
    auto depth = std::ssize(Components(rules_.Base)) - std::ssize(Components(rules_.Module));
    for (const Text& part : Components(written_)) {
      depth += part == u".." ? -1 : 1;
      if (depth < 0) return true;
    }
    return false;
  }

  PathVerdict Leaving() const {
    const Text there = Resolved(full_);
    const Text wrong = u"the path leads out of the module's folder";
    if (FindNoCase(there, rules_.Module) == 0) {
      return {Fault::Elsewhere, wrong, {}, FromBase(there.substr(rules_.Module.size()))};
    }
    return {Fault::Elsewhere, wrong, u"copy the file into the module and write: ",
            FromBase(LastComponent(written_))};
  }

  PathVerdict Folder() const {
    Text path = written_;
    if (!IsSeparator(path.back())) path += path.find(u'/') == Text::npos ? u'\\' : u'/';
    const auto names = module_.Host ? module_.Host->NamesIn(full_) : std::vector<Text>();
    return {Fault::Folder, u"the path is that of a folder", u"name a file in it: ",
            path + (names.empty() ? Text(u"notes.rtf") : names.front())};
  }

  PathVerdict Spelt() const {
    const Text meant = Resolved(full_);
    Text actual = meant;
    Guard::Ignore([&] { module_.Files->GetLongPathName(meant, actual); });
    const bool capitals = EqualNoCase(actual, meant) &&
                          actual.substr(rules_.Module.size()) != meant.substr(rules_.Module.size());
    if (capitals) {
      return {Fault::Capitals,
              u"the file's name has other capitals than the path",
              {},
              InLettersOf(written_, actual)};
    }
    const Text composed = Composed(written_);
    if (composed == written_) return {};
    return {Fault::Letters, u"a letter of the file's name is written as two, letter and accent",
            u"rename the file with letters typed anew, and write: ", composed};
  }

  PathVerdict Missing() const {
    Text tidy = Trim(Visible(written_));
    while (tidy.size() > 1 && (tidy.front() == u'"' || tidy.front() == u'\'') &&
           tidy.back() == tidy.front()) {
      tidy = Trim(tidy.substr(1, tidy.size() - 2));
    }
    if (IsThere(tidy)) {
      return {Fault::NotThere,
              u"blanks, quotation marks or invisible characters stand in the path",
              {},
              tidy};
    }
    for (auto at = tidy.find(u"%20"); at != Text::npos; at = tidy.find(u"%20")) {
      tidy.replace(at, 3, u" ");
    }
    const Text there = Straightened(tidy);
    for (const Text& path : {tidy, there}) {
      if (IsThere(path)) return {Fault::NotThere, NoSuch(), {}, path};
    }
    return Guessed();
  }

  bool IsThere(const Text& path) const {
    return !path.empty() && path != written_ &&
           AttributesOf(rules_.Base + WithBackslashes(path)) == 0;
  }

  Text NoSuch() const { return u"there is no such file: \"" + written_ + u"\""; }

  /// By the names that stand where the file should.
  PathVerdict Guessed() const {
    const Text last = LastComponent(written_);
    const Text folder = full_.substr(0, full_.size() - last.size());
    const auto names = module_.Host ? module_.Host->NamesIn(folder) : std::vector<Text>();
    for (const Text& name : names) {
      if (!EqualNoCase(Composed(name), Composed(last))) continue;
      return {Fault::NotThere, u"a letter of the file's name is written as two, letter and accent",
              u"rename the file to " + Composed(name) + u"; the line: ", WithLast(Composed(name))};
    }
    const auto stem = [](const Text& name) { return name.substr(0, name.rfind(u'.')); };
    std::optional<Text> meant = Nearest(last, names, 2);
    for (const Text& name : names) {
      if (!meant && EqualNoCase(stem(name), stem(last))) meant = name;
    }
    if (meant) return {Fault::NotThere, NoSuch(), {}, WithLast(*meant)};
    return {Fault::NotThere, NoSuch(), u"put the file there; the line stays: ", written_};
  }

  Text WithLast(const Text& name) const {
    return written_.substr(0, written_.size() - LastComponent(written_).size()) + name;
  }

  const CheckedModule& module_;
  const PathRules& rules_;
  const Text& written_;
  const Text full_;
};

}  // namespace

PathVerdict JudgePath(const CheckedModule& module, const PathRules& rules, const Text& written) {
  return PathJudge(module, rules, written).Judge();
}

}  // namespace brelmon
