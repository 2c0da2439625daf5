// SPDX-License-Identifier: GPL-2.0-or-later
// Lines, kinds, names and locations of media_list.txt.
#include "check/MediaListCheck.h"

#include <algorithm>
#include <array>
#include <map>

#include "check/FileReport.h"
#include "check/MediaAddressCheck.h"
#include "check/MediaExtensions.h"
#include "check/MediaSlips.h"
#include "check/Spelling.h"
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
const Text kCommaInName = u"the only comma stands before the colon";
const Text kNotFound = u"the media viewer says that it can't find the file";

bool IsWholeNumber(const Text& code) {
  return Guard::Ignore([&] { ParseMediaLine(u":," + code, {}); }) == 0;
}

Text WithCommasAs(Text text, const Text& other) {
  for (auto at = text.find(u','); at != Text::npos; at = text.find(u',', at)) {
    text.replace(at, 1, other);
  }
  return text;
}

/// An example of a location, for an item that has none.
Text ExampleOf(std::int32_t code) {
  static constexpr TextView kFiles[] = {
      u"globe/places.kml", u"images/map.png", u"movies/wave.avi", u"http://example.org/",
      u"data/table.csv",   u"docs/notes.rtf", u"docs/guide.pdf",  u"docs/lesson.odp"};
  return Text(MediaKindOf(code) ? kFiles[code] : kFiles[5]);
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
        Broken(reader.LastLine(), reader.Line());
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
    if (report_.HoldsLineFeed(number, asRead, Severity::Note)) return;
    Text line = report_.Meant(number, asRead, Severity::Note);
    std::replace(line.begin(), line.end(), u'\t', u'|');  // a mark between columns
    line = Trim(Visible(line));
    if (const auto slip = SlipIn(line, [this](const Text& path) { return report_.IsFile(path); })) {
      return report_.Add(number, slip->Grade, slip->Wrong, u"the media viewer skips the item",
                         slip->Mended);
    }
    report_.HoldsInvisible(number, asRead, Severity::Note, u"the tools skip the line as a note");
  }

  /// A line that the reader fails on: no comma behind the colon, or no kind code behind the comma.
  void Broken(const Text& asRead, std::int32_t number) {
    if (report_.HoldsLineFeed(number, asRead, Severity::Fails)) return;
    const Text line = Trim(Visible(report_.Meant(number, asRead, Severity::Fails)));
    const auto colon = line.find(u':');
    const Text name = line.substr(0, colon), rest = line.substr(colon + 1);
    const auto first = rest.find(u','), last = rest.rfind(u',');
    const Text location = Trim(rest.substr(0, first));
    if (first == Text::npos && CommaInName(number, name, rest)) return;
    if (!LooksLikeItem(location) && location.find(u' ') != Text::npos) {
      return report_.Add(number, Severity::Fails, u"the tools take the sentence for an item",
                         kStops, u"write it without comma: " + WithCommasAs(line, u""));
    }
    if (first == Text::npos) {
      return report_.Add(number, Severity::Fails, kCommaInName, kStops,
                         MediaLine(name, location, CodeFor(location)));
    }
    if (first != last && IsWholeNumber(Trim(rest.substr(last + 1))))
      return Comma(number, name, rest);
    report_.Add(number, Severity::Fails,
                u"the kind code \"" + rest.substr(first + 1) + u"\" is no whole number", kStops,
                MediaLine(name, location, CodeFor(location)));
  }

  bool LooksLikeItem(const Text& location) const {
    return LooksLikeAddress(location) || report_.IsFile(location) ||
           !CodesForLocation(location).empty();
  }

  /// A name with a comma, and another mark before the kind code.
  bool CommaInName(std::int32_t number, const Text& name, const Text& rest) {
    const auto slip =
        SlipIn(u":" + rest, [this](const Text& path) { return report_.IsFile(path); });
    if (slip) report_.Add(number, Severity::Fails, kCommaInName, kStops, name + slip->Mended);
    return slip.has_value();
  }

  void Comma(std::int32_t number, const Text& name, const Text& rest) {
    const auto last = rest.rfind(u',');
    const Text location = rest.substr(0, last);
    const bool address = LooksLikeAddress(location);
    report_.Add(number, Severity::Fails, u"a comma stands in the location", kStops,
                (address ? u"" : u"rename the file and write: ") +
                    MediaLine(name, WithCommasAs(location, address ? u"%2C" : u"_"),
                              Trim(rest.substr(last + 1))));
  }

  void Item(MediaItem item, const Text& asRead) {
    if (report_.HoldsLineFeed(item.Line, asRead, Severity::Fails)) return;
    const Text meant = report_.Meant(item.Line, asRead, Severity::Fails);
    if (meant != asRead) {  // on with what the author meant, if that can be read
      std::optional<MediaItem> intended;
      Guard::Ignore([&] { intended = ParseMediaLine(meant, directory_); });
      if (!intended) return;
      intended->Line = item.Line;
      item = *intended;
    }
    if (report_.HoldsInvisible(item.Line, meant, Severity::Fails,
                               u"the media viewer shows it in the name or can't find the file")) {
      return;
    }
    if (NameIsPartOfAddress(item)) return;
    Names(item);
    if (Kind(item)) Location(item);
  }

  /// `http://example.org,3`: the first colon ends the name.
  bool NameIsPartOfAddress(const MediaItem& item) {
    const std::vector<Text> schemes = {u"http", u"https", u"ftp"};
    const auto scheme = Nearest(Trim(item.Name), schemes, 1);
    if (!scheme || !item.Written.starts_with(u"//")) return false;
    const Text address = *scheme + u":" + item.Written;
    const Text server = item.Written.substr(2, item.Written.find(u'/', 2) - 2);
    report_.Add(item.Line, Severity::Fails, u"the web address has no name before it",
                u"the tools take \"" + item.Name + u"\" for the name and open nothing",
                MediaLine(server, address, u"3"));
    return true;
  }

  void Names(const MediaItem& item) {
    const auto again = [&](const Text& where, std::int32_t before) {
      report_.Add(item.Line, Severity::Fails,
                  u"the name \"" + item.Name + u"\" stands already on line " +
                      report_.EditorLine(before) + u", " + where,
                  kStops, MediaLine(item.Name + u" (2)", item.Written, GeneralText(item.Code)));
    };
    if (Trim(item.Name).empty()) {
      report_.Add(item.Line, Severity::Note, u"the item has no name",
                  u"the media viewer shows an empty row",
                  MediaLine(StemOf(item.Written), item.Written, GeneralText(item.Code)));
    }
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
    if (Trim(item.Written).empty()) {
      report_.Add(
          item.Line, Severity::Fails, u"the item has no location",
          u"the media viewer can't open it",
          MediaLine(item.Name, ExampleOf(item.Code), GeneralText(item.Code)) + u" (for example)");
      return false;
    }
    if (item.Code == kWebsiteCode && !IsShortcutFile(item.Written)) {
      const std::size_t before = report_.Findings();
      CheckAddress(item, report_);
      if (report_.Findings() == before) report_.Refused(item.Line, item.Location);
      return false;
    }
    if (item.Written.find(u"://") != Text::npos && FindNoCase(item.Written, u"file:") != 0) {
      report_.Add(item.Line, Severity::Fails, u"a web address stands under a kind code of files",
                  kNotFound, MediaLine(item.Name, item.Written, u"3"));
      return false;
    }
    Agreement(item);
    return true;
  }

  /// Of code and extension. The item opens all the same.
  void Agreement(const MediaItem& item) {
    const auto codes = CodesForLocation(item.Written);
    const MediaKind* kind = MediaKindOf(item.Code);
    if (!kind) {
      return report_.Add(
          item.Line, Severity::Note, u"no kind has the code " + GeneralText(item.Code),
          u"the item stands under \"All Media\" only, with the label of the item before it",
          MediaLine(item.Name, item.Written, CodeFor(item.Written)));
    }
    if (codes.empty() || std::find(codes.begin(), codes.end(), item.Code) != codes.end()) return;
    const bool page = codes.front() == kWebsiteCode && !IsShortcutFile(item.Written);
    report_.Add(item.Line, Severity::Note,
                u"the kind code " + GeneralText(item.Code) + u" (" + Text(kind->AllLabel) +
                    u") is another than the file's extension tells",
                u"the item is listed among that kind and opens all the same",
                MediaLine(item.Name, item.Written,
                          page ? GeneralText(item.Code) : GeneralText(codes.front())));
  }

  void Location(const MediaItem& item) {
    const auto remake = [&](const Text& path) {
      return MediaLine(item.Name, path, GeneralText(item.Code));
    };
    if (!report_.Path(item.Line, item.Written, kNotFound, remake)) return;
    const Text path = directory_ + item.Written;
    // In the folder's own name it is told of once, with the document.
    const bool apostrophe =
        directory_.find(u'\'') == Text::npos && item.Written.find(u'\'') != Text::npos;
    if (apostrophe && ReturnDir(item.Location) + ReturnFilename(item.Location) != item.Location) {
      Text other = item.Written;
      std::erase(other, u'\'');
      report_.Add(item.Line, Severity::Fails, u"an apostrophe stands in the path",
                  u"the tools can't tell folder and file apart and open nothing",
                  u"rename it and write: " + remake(other));
    }
    if (IsShortcutFile(item.Written)) {
      CheckShortcut(item, report_);
    } else {
      report_.Refused(item.Line, item.Location);
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
  const FileNames names{kMediaListName, u"the media viewer asks for one",
                        u"write one, or an empty one"};
  const auto text = ReadInModule(module, directory, names, findings);
  if (!text) return;
  const Text path = directory + Text(names.Due);
  FileReport report(module, names.Due, directory, *text, findings);
  if (!report.Form(false)) return;
  MediaListCheck(directory, report).Read(path);
}

}  // namespace brelmon
