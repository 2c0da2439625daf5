// SPDX-License-Identifier: GPL-2.0-or-later
// Text, path and field helpers that the other rooms share.
#include "util/aml_func_mod.h"

#include <algorithm>
#include <array>

#include "frame/guard.h"
#include "platform/collection.h"
#include "platform/services.h"

namespace brelmon {
namespace {

constexpr TextView kNul(u"\0", 1);

bool IsIn(TextView set, char16_t unit) { return FindNoCase(set, TextView(&unit, 1)) != Text::npos; }

/// Commas from the right, one before each three characters and one behind what is left over.
Text Grouped(const Text& whole) {
  if (whole.size() < 4) return whole;
  Text result;
  for (auto at = static_cast<std::ptrdiff_t>(whole.size()) - 3; at >= 0; at -= 3) {
    const auto start = static_cast<std::size_t>(at);
    result.insert(0, whole.substr(start, 3) + u',');
    if (start < 3) result.insert(0, whole.substr(0, start) + u',');
  }
  const std::size_t first = result.find_first_not_of(u',');
  if (first == Text::npos) return {};
  return result.substr(first, result.find_last_not_of(u',') - first + 1);
}

/// Where a path's extension begins: at a dot among the last five characters, else at the end.
std::size_t ExtensionOf(const Text& path) {
  const std::size_t dot = path.rfind(u'.');
  return dot != Text::npos && path.size() - dot <= 5 ? dot : path.size();
}

void SplitTokens(TextView text, std::vector<Text>& tokens, char16_t delimiter) {
  Text copy(text);
  std::size_t quote = Text::npos;
  for (std::size_t at = 0; at + 1 < copy.size(); ++at) {
    if (copy[at] == u'\'') {
      if (quote != Text::npos) {
        copy[quote] = copy[at] = u' ';  // the pair is complete; the rest is one token
        break;
      }
      quote = at;
    } else if (copy[at] == delimiter && quote == Text::npos) {
      const Text token = Trim(TextView(copy).substr(0, at + 1));
      if (token.empty()) continue;
      tokens.push_back(token);
      std::fill_n(copy.begin(), at + 1, u' ');
    }
  }
  tokens.push_back(Trim(copy));
  for (Text& token : tokens) {
    if (token.empty() || token.back() != delimiter) continue;
    token.back() = u' ';
    token = Trim(token);
  }
}

struct HostFolder {
  RegistryRoot root;
  TextView key;
  TextView name;
  TextView what;  // in the sentence that stands for a folder not found
};
constexpr TextView kCatalogSettings = u"Software\\ESRI\\ArcCatalog\\Settings";
constexpr std::array kHostFolders = {
    HostFolder{RegistryRoot::CurrentUser, kCatalogSettings, u"LastBrowseLocation",
               u"Last Browsed To"},
    HostFolder{RegistryRoot::CurrentUser, kCatalogSettings, u"LastExportToLocation",
               u"Last Exported To"},
    HostFolder{RegistryRoot::CurrentUser, kCatalogSettings, u"LastLocation", u"Last"},
    HostFolder{RegistryRoot::CurrentUser, kCatalogSettings, u"LastSaveToLocation",
               u"Last Saved To"},
    HostFolder{RegistryRoot::LocalMachine, u"Software\\ESRI\\ArcGIS", u"InstallDir", u"Install"},
};

/// A name "*" asks for the key's default value.
bool QueryText(const HostFolder& folder, Text& text) {
  Value value;
  const Text name(folder.name == u"*" ? TextView() : folder.name);
  if (!Registry().Query(folder.root, Text(folder.key), name, value)) return false;
  text = value.ToText();
  return true;
}

}  // namespace

Text After(TextView text, TextView pattern) {
  return Guard::Top(u"After", [&] {
    const std::size_t hit = text.find(pattern);
    return hit == Text::npos ? Text() : Text(text.substr(hit + pattern.size()));
  });
}

Text Before(TextView text, TextView pattern) {
  return Guard::Top(u"Before", [&] {
    const std::size_t hit = text.find(pattern);
    return hit == Text::npos ? Text() : Text(text.substr(0, hit));
  });
}

Text Subst(TextView text, TextView pattern) {
  return Guard::Top(u"Subst", [&] {
    Text rest(text);
    if (pattern.empty()) return rest;
    // What goes is the first occurrence, which may stand before the hit.
    for (auto hit = rest.find(pattern); hit != Text::npos; hit = rest.find(pattern, hit)) {
      rest = Before(rest, pattern) + After(rest, pattern);
    }
    return rest;
  });
}

Text Subst(TextView text, TextView pattern, TextView replacement) {
  return Guard::Top(u"Subst", [&] {
    Text result(text);
    if (pattern.empty() || replacement.empty()) return result;
    for (auto hit = result.find(pattern); hit != Text::npos;
         hit = result.find(pattern, hit + replacement.size())) {
      const std::size_t room = std::min(replacement.size(), result.size() - hit);
      result.replace(hit, room, replacement.substr(0, room));
    }
    return result;
  });
}

Text BasicTrimAvenue(Text& text, TextView leftSet, TextView rightSet) {
  return Guard::Top(u"BasicTrimAvenue", [&] {
    while (!text.empty() && IsIn(rightSet, text.back())) text.pop_back();
    const auto first =
        std::ranges::find_if_not(text, [leftSet](char16_t unit) { return IsIn(leftSet, unit); });
    text.erase(text.begin(), first);
    return text;
  });
}

Text InsertCommas(const Value& number) {
  return Guard::Top(u"InsertCommas", [&] {
    const Text text = number.ToText();
    const std::size_t point = text.find(u'.');
    if (point == Text::npos) return Grouped(text);
    return Grouped(text.substr(0, point)) + text.substr(point);
  });
}

void ParseString(TextView text, std::vector<Text>& tokens, char16_t delimiter) {
  tokens.clear();
  Guard::Ignore([&] {
    if (Trim(Subst(text, TextView(&delimiter, 1))).empty()) return;
    SplitTokens(text, tokens, delimiter);
  });
}

Text ReturnDir(TextView path) {
  return Guard::Top(u"ReturnDir", [&] {
    std::vector<Text> tokens;
    ParseString(path, tokens, u'\\');
    Text folder = At(tokens, 0);
    for (std::size_t token = 1; token + 1 < tokens.size(); ++token) folder += u'\\' + tokens[token];
    return folder + u'\\';
  });
}

Text ReturnFilename(TextView path) {
  return Guard::Top(u"ReturnFilename", [&] {
    std::vector<Text> tokens;
    ParseString(path, tokens, u'\\');
    return At(tokens, static_cast<std::int32_t>(tokens.size()) - 1);
  });
}

Text GetFullFileString(const Text& path) {
  return Guard::Top(u"GetFullFileString", [&] {
    Text buffer;
    std::int32_t length = 0;
    const std::int32_t failed =
        Guard::Ignore([&] { length = FileSystem().GetLongPathName(path, buffer); });
    if (failed != 0 || length < 1) return path;
    return buffer.substr(0, static_cast<std::size_t>(length));
  });
}

bool ExistFileDir(const Text& path) {
  return Guard::Top(u"ExistFileDir", [&] {
    std::int32_t attributes = -1;
    Guard::Ignore([&] { attributes = FileSystem().Attributes(path); });
    return attributes != -1;
  });
}

Text MakeUniqueFilename(const Text& path) {
  return Guard::Top(u"MakeUniqueFilename", [&] {
    const std::size_t end = ExtensionOf(path);
    Text candidate = path;
    for (std::int32_t n = 2; ExistFileDir(candidate); ++n) {
      candidate = path.substr(0, end) + u'_' + Value(n).ToText() + path.substr(end);
    }
    return candidate;
  });
}

Text TempPathLocation() {
  return Guard::Top(u"TempPathLocation", [&] {
    Text buffer;
    if (FileSystem().GetTempPath(buffer) == 0) return Text();
    return buffer.substr(0, buffer.find(u'\0'));
  });
}

Text GetTheUserName() {
  return Guard::Top(u"GetTheUserName", [&] {
    Text name;
    if (!Shell().GetUserName(name)) name.clear();
    return BasicTrimAvenue(name, {}, kNul);
  });
}

Text ReturnArcGISGeneralDir(std::int32_t code) {
  return Guard::Top(u"ReturnArcGISGeneralDir", [&] {
    if (code < 0 || code >= static_cast<std::int32_t>(kHostFolders.size())) return Text();
    const HostFolder& folder = kHostFolders[static_cast<std::size_t>(code)];
    Text text;
    if (!QueryText(folder, text)) {
      return Text(u"Unable to determine ArcGIS ").append(folder.what).append(u" location!");
    }
    if (text.ends_with(u'\0')) text.pop_back();
    if (text.ends_with(u'\\')) text.pop_back();
    return text;
  });
}

bool FieldIsNumeric(const Ref<IField>& field) {
  return Guard::Top(u"FieldIsNumeric", [&] {
    const auto type = static_cast<std::int32_t>(field->Type());
    return type >= 0 && type <= 3;
  });
}

}  // namespace brelmon
