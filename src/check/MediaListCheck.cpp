// SPDX-License-Identifier: GPL-2.0-or-later
// Lines, kinds, names and locations of media_list.txt.
#include "check/MediaListCheck.h"

#include <algorithm>
#include <array>
#include <map>

#include "check/FileReport.h"
#include "check/MediaExtensions.h"
#include "frame/guard.h"
#include "media/MediaList.h"
#include "platform/collection.h"
#include "platform/number.h"
#include "platform/textfile.h"
#include "util/aml_func_mod.h"

namespace brelmon {
namespace {

constexpr std::int32_t kFileNumber = 1;
const Text kStops =
    u"the media viewer stops here with an error and stays empty; neither it nor QuickLoad can read "
    u"a file until the map application is started anew";

Text Line(const Text& name, Text location, const Text& code) {
  if (code == u"3" && !IsShortcutFile(location)) {
    std::replace(location.begin(), location.end(), u':', u'\u00DF');
  }
  return name + u":" + location + u"," + code;
}

class MediaListCheck {
 public:
  MediaListCheck(const Text& directory, FileReport& report)
      : directory_(directory), report_(report) {}

  void Read(const Text& path) {
    textfile::Open(kFileNumber, path, FileMode::Input);
    MediaListReader reader(kFileNumber, directory_, [this](const Text& line, std::int32_t number) {
      Skipped(line, number);
    });
    // The tools stop at the first line that fails; an author wants to hear of all of them.
    for (;;) {
      std::optional<MediaItem> item;
      const auto before = reader.Line();
      const auto failed = Guard::Ignore([&] { item = reader.Next(); });
      if (failed != 0 && reader.Line() == before) {  // the disk's fault, not the author's
        textfile::Close(kFileNumber);
        Raise(failed);
      } else if (failed != 0) {
        Broken(Trim(reader.LastLine()), reader.Line());
      } else if (item) {
        Item(*item, reader.LastLine());
      } else {
        break;
      }
    }
    textfile::Close(kFileNumber);
  }

 private:
  void Skipped(const Text& asRead, std::int32_t number) {
    const Text line = Trim(report_.Meant(number, asRead, Severity::Note));
    const auto colon = line.find(u':');
    if (colon == Text::npos || CodesForLocation(line).empty()) return;
    const Text location = line.substr(colon + 1);
    report_.Add(number, Severity::Fails, u"the line has no comma and kind code",
                u"the media viewer skips the item",
                Line(line.substr(0, colon), location, CodeFor(location)));
  }

  /// A line that the reader fails on: no comma behind the colon, or no kind code behind the comma.
  void Broken(const Text& line, std::int32_t number) {
    const auto colon = line.find(u':');
    const Text name = line.substr(0, colon), rest = line.substr(colon + 1);
    const auto first = rest.find(u','), last = rest.rfind(u',');
    if (first == Text::npos) {
      return report_.Add(number, Severity::Fails, u"the only comma stands before the colon", kStops,
                         Line(name, rest, CodeFor(rest)));
    }
    const Text code = Trim(rest.substr(last + 1));
    if (first != last && Guard::Ignore([&] { ParseMediaLine(u":," + code, {}); }) == 0) {
      Text location = rest.substr(0, last);
      std::replace(location.begin(), location.end(), u',', u'_');
      return report_.Add(number, Severity::Fails, u"a comma stands in the location", kStops,
                         u"rename the file and write: " + Line(name, location, code));
    }
    const Text location = rest.substr(0, first);
    report_.Add(number, Severity::Fails,
                u"the kind code \"" + rest.substr(first + 1) + u"\" is no whole number", kStops,
                Line(name, location, CodeFor(location)));
  }

  void Item(MediaItem item, const Text& asRead) {
    const Text meant = report_.Meant(item.Line, asRead, Severity::Fails);
    if (meant != asRead) {  // on with what the author meant, if that can be read
      std::optional<MediaItem> intended;
      Guard::Ignore([&] { intended = ParseMediaLine(meant, directory_); });
      if (!intended) return;
      intended->Line = item.Line;
      item = *intended;
    }
    Names(item);
    if (Kind(item)) Location(item);
  }

  void Names(const MediaItem& item) {
    const auto again = [&](const Text& where, std::int32_t before) {
      report_.Add(item.Line, Severity::Fails,
                  u"the name \"" + item.Name + u"\" stands already on line " +
                      report_.EditorLine(before) + u", " + where,
                  kStops, Line(item.Name + u" (2)", item.Written, GeneralText(item.Code)));
    };
    bool repeated = false;
    if (MediaKindOf(item.Code)) {
      const auto [kept, isNew] =
          names_[static_cast<std::size_t>(item.Code)].emplace(item.Name, item.Line);
      if (!isNew) again(u"in the same kind", kept->second);
      repeated = !isNew;
    }
    const auto [kept, isNew] = all_.emplace(AllMediaRow(item, label_), item.Line);
    if (!isNew && !repeated) again(u"under the same label", kept->second);
  }

  /// False where the location is no file to look for.
  bool Kind(const MediaItem& item) {
    const auto codes = CodesForLocation(item.Written);
    const bool address = item.Written.find(u"://") != Text::npos;
    if (item.Code == kWebsiteCode && !IsShortcutFile(item.Written)) {
      const bool file = !address && !codes.empty() && !item.Written.starts_with(u"www.");
      if (file) FileAsAddress(item, codes.front());
      return false;
    }
    if (address) {
      report_.Add(item.Line, Severity::Fails, u"a web address stands under a kind code of files",
                  u"the media viewer says that it can't find the file",
                  Line(item.Name, item.Written, u"3"));
      return false;
    }
    const MediaKind* kind = MediaKindOf(item.Code);
    if (!kind) {
      report_.Add(item.Line, Severity::Note, u"no kind has the code " + GeneralText(item.Code),
                  u"the item stands under \"All Media\" only, with the label of the item before it",
                  Line(item.Name, item.Written, CodeFor(item.Written)));
    } else if (!codes.empty() && std::find(codes.begin(), codes.end(), item.Code) == codes.end()) {
      report_.Add(item.Line, Severity::Note,
                  u"the kind code " + GeneralText(item.Code) + u" (" + Text(kind->AllLabel) +
                      u") disagrees with the file's extension",
                  u"the item is listed among the wrong kind",
                  Line(item.Name, item.Written, GeneralText(codes.front())));
    }
    return true;
  }

  void FileAsAddress(const MediaItem& item, std::int32_t likely) {
    const Text& file = item.Written;
    const Text shortcut = Line(item.Name, ReplacedEnd(file, u".url"), u"3");
    Text mended = Line(item.Name, file, GeneralText(likely));
    if (likely == kWebsiteCode) {
      const bool capitals = EqualNoCase(file.substr(file.rfind(u'.')), u".url");
      mended = capitals ? shortcut : u"make a shortcut to it: " + shortcut;
    }
    report_.Add(item.Line, Severity::Fails,
                u"kind code 3 takes \"" + file + u"\" for a web address",
                u"the media viewer doesn't look for it beside the document", mended);
  }

  static Text ReplacedEnd(const Text& location, const Text& extension) {
    return location.substr(0, location.rfind(u'.')) + extension;
  }

  void Location(const MediaItem& item) {
    const auto remake = [&](const Text& path) {
      return Line(item.Name, path, GeneralText(item.Code));
    };
    report_.File(item.Line, item.Written, item.Location,
                 u"the media viewer says that it can't find the file", remake);
    const bool apostrophe = item.Location.find(u'\'') != Text::npos;
    if (apostrophe && ReturnDir(item.Location) + ReturnFilename(item.Location) != item.Location) {
      Text path = item.Written;
      std::erase(path, u'\'');
      report_.Add(item.Line, Severity::Fails, u"an apostrophe stands in the path",
                  u"the tools can't tell folder and file apart and open nothing",
                  u"rename it and write: " + remake(path));
    }
  }

  const Text& directory_;
  FileReport& report_;
  using Lines = std::map<Text, std::int32_t, NoCaseLess>;
  std::array<Lines, kMediaKinds.size()> names_;
  Lines all_;
  Text label_;
};

}  // namespace

void CheckMediaList(const CheckedModule& module, const Text& directory,
                    std::vector<Finding>& findings) {
  const Text name(kMediaListName);
  const Text path = directory + name;
  if (!ExistFileDir(path)) {
    findings.push_back({name, 1, Severity::Note, u"there is no such file",
                        u"the media viewer asks for one", u"write one, or an empty one"});
    return;
  }
  const ModuleText text = ModuleText::Read(*module.Files, path);
  FileReport report(name, directory, *module.Files, text, findings);
  if (!report.Form(false)) return;
  MediaListCheck(directory, report).Read(path);
}

}  // namespace brelmon
