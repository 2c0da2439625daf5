// SPDX-License-Identifier: GPL-2.0-or-later
// Path mapping, component by component.
#include "hosts/common/paths.h"

#include <dirent.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace brelmon::host {
namespace {

/// Components between slashes, "." and ".." taken away.
std::vector<std::string> Components(const std::string& path) {
  std::vector<std::string> parts;
  std::size_t from = 0;
  while (from <= path.size()) {
    const std::size_t to = std::min(path.find('/', from), path.size());
    const std::string part = path.substr(from, to - from);
    if (part == "..") {
      if (!parts.empty()) parts.pop_back();
    } else if (!part.empty() && part != ".") {
      parts.push_back(part);
    }
    from = to + 1;
  }
  return parts;
}

bool Exists(const std::string& path) {
  struct stat status {};
  return ::lstat(path.c_str(), &status) == 0;
}

/// The entry of `folder` whose name equals `name` regardless of case; empty if there is none.
std::string EntryNoCase(const std::string& folder, const std::string& name) {
  DIR* directory = ::opendir(folder.empty() ? "/" : folder.c_str());
  if (directory == nullptr) return {};
  const Text wanted = FromUtf8(name);
  std::string best;
  while (const dirent* entry = ::readdir(directory)) {
    const std::string found = entry->d_name;
    if (EqualNoCase(FromUtf8(found), wanted) && (best.empty() || found < best)) best = found;
  }
  ::closedir(directory);
  return best;
}

bool IsLetterDrive(TextView path) {
  const char16_t letter = path.empty() ? u'\0' : FoldCase(path[0]);
  return path.size() >= 2 && letter >= u'a' && letter <= u'z' && path[1] == u':' &&
         (path.size() == 2 || path[2] == u'\\');
}

/// What of `path` follows `prefix` and a backslash or the end; nothing for other paths.
std::optional<Text> Below(TextView path, TextView prefix) {
  if (path.size() < prefix.size() || !EqualNoCase(path.substr(0, prefix.size()), prefix)) return {};
  const TextView rest = path.substr(prefix.size());
  if (!rest.empty() && rest[0] != u'\\') return {};
  return Text(rest);
}

}  // namespace

PathOwner PathOwner::Current() {
  PathOwner owner;
  const passwd* entry = ::getpwuid(::getuid());
  const char* home = std::getenv("HOME");
  if (entry != nullptr) owner.user = FromUtf8(entry->pw_name);
  if (home != nullptr && *home == '/') {
    owner.home = home;
  } else if (entry != nullptr) {
    owner.home = entry->pw_dir;
  }
  while (!owner.home.empty() && owner.home.back() == '/') owner.home.pop_back();
  return owner;
}

Text Paths::ToWindows(const std::string& systemPath) const {
  Text path = u"Z:" + FromUtf8(systemPath);
  std::replace(path.begin(), path.end(), u'/', u'\\');
  return path;
}

std::optional<std::string> Paths::ToSystem(TextView windowsPath) const {
  Text path(windowsPath);
  std::replace(path.begin(), path.end(), u'/', u'\\');
  if (!IsLetterDrive(path)) return {};
  std::string base;
  std::optional<Text> rest = Below(path, u"Z:");
  if (!rest && !owner_.user.empty()) {
    base = owner_.home;
    rest = Below(path, u"C:\\Users\\" + owner_.user);
  }
  if (!rest) return {};
  // ".." must not climb out of the home on its way through C:.
  std::string below;
  for (const std::string& part : Components([&] {
         std::string text = ToUtf8(*rest);
         std::replace(text.begin(), text.end(), '\\', '/');
         return text;
       }())) {
    below += '/' + part;
  }
  return TrueCase(base + below);
}

std::string TrueCase(const std::string& path) {
  std::string real;
  bool found = true;
  for (const std::string& part : Components(path)) {
    std::string name = part;
    if (found && !Exists(real + '/' + part)) {
      const std::string other = EntryNoCase(real, part);
      found = !other.empty();
      if (found) name = other;
    }
    real += '/' + name;
  }
  return real.empty() ? "/" : real;
}

bool FileExists(const std::string& systemPath) {
  struct stat status {};
  return ::stat(systemPath.c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

bool FolderExists(const std::string& systemPath) {
  struct stat status {};
  return ::stat(systemPath.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace brelmon::host
