// SPDX-License-Identifier: GPL-2.0-or-later
// Tags, records and paths of QuickLoad.txt.
#include "check/QuickLoadCheck.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>

#include "check/BookmarkCheck.h"
#include "check/FileReport.h"
#include "check/QueryCheck.h"
#include "check/SourcesCheck.h"
#include "check/Spelling.h"
#include "check/TagSlips.h"
#include "frame/documentmodel.h"
#include "frame/guard.h"
#include "platform/number.h"
#include "platform/textfile.h"
#include "quickload/QuickLoadFile.h"
#include "util/aml_func_mod.h"

namespace brelmon {
namespace {

/// Names of a record's lines behind the tag.
TextView FieldName(QuickLoadRecord::Kind kind, std::size_t field) {
  static constexpr TextView kBookmark[] = {u"name", u"XMin", u"YMin", u"XMax", u"YMax"};
  if (kind == QuickLoadRecord::Kind::Bookmark) return kBookmark[field];
  if (field == 0) return u"name";
  return kind == QuickLoadRecord::Kind::Layer ? u"path" : u"query";
}

/// What such a line may look like.
TextView FieldExample(QuickLoadRecord::Kind kind, std::size_t field) {
  static constexpr TextView kBookmark[] = {u"Gulf of Mexico", u"-98", u"17", u"-80", u"31"};
  if (kind == QuickLoadRecord::Kind::Bookmark) return kBookmark[field];
  if (kind == QuickLoadRecord::Kind::Layer) {
    return field == 0 ? u"Strong quakes" : u"layers\\strong_quakes.qlr";
  }
  return field == 0 ? u"Strong quakes" : u"\"MAG\" > 5";
}

Text Example(QuickLoadRecord::Kind kind, std::size_t field) {
  return Text(FieldExample(kind, field)) + u" (for example)";
}

class QuickLoadCheck {
 public:
  QuickLoadCheck(const CheckedModule& module, const Text& directory, FileReport& report,
                 std::vector<Finding>& findings)
      : module_(module), directory_(directory), report_(report), findings_(findings) {}

  void Read(const Text& path) {
    textfile::Open(QuickLoadFile::kFileNumber, path, FileMode::Input);
    QuickLoadReader reader(
        QuickLoadFile::kFileNumber,
        [this](const Text& line, std::int32_t number) { skipped_[number] = line; });
    std::vector<QuickLoadRecord> records;
    const auto failed = Guard::Ignore([&] {
      while (auto record = reader.Next()) records.push_back(std::move(*record));
    });
    QuickLoadFile::Close();
    if (failed != 0 && failed != failure::kInputPastEnd) Raise(failed);  // the disk's fault
    for (const auto& [number, line] : skipped_) Skipped(line, number);
    for (const QuickLoadRecord& record : records) Record(record);
    Queries();
    if (failed != 0) CutShortAtTheEnd(reader);
  }

 private:
  void CutShortAtTheEnd(const QuickLoadReader& reader) {
    const QuickLoadKind& kind = *reader.TagKind();
    const auto have = static_cast<std::size_t>(reader.Line() - reader.TagLine());
    report_.Add(
        reader.TagLine(), Severity::Fails,
        u"the record is cut short: " + GeneralText(static_cast<std::int32_t>(have)) + u" of " +
            GeneralText(static_cast<std::int32_t>(kind.FieldCount)) +
            u" lines stand behind its tag",
        u"QuickLoad stops with an error, and so does whatever reads the file after it, until "
        u"the map application is started anew",
        u"add behind line " + report_.EditorLine(reader.Line()) + u" the " +
            Text(FieldName(kind.Is, have)) + u": " + Example(kind.Is, have));
  }

  /// The skipped lines right behind a line.
  std::vector<Text> Below(std::int32_t number) const {
    std::vector<Text> lines;
    constexpr std::size_t kMost = 5;
    for (auto at = skipped_.find(number + 1); at != skipped_.end() && lines.size() < kMost;
         at = skipped_.find(++number + 1)) {
      lines.push_back(at->second);
    }
    return lines;
  }

  void Skipped(const Text& line, std::int32_t number) {
    bool tagInside = false;
    for (std::size_t at = 0; line.find(u'\n') != Text::npos && at <= line.size();) {
      const auto end = std::min(line.find(u'\n', at), line.size());
      tagInside = tagInside || TagOf(line.substr(at, end - at)) != nullptr;
      at = end + 1;
    }
    if (report_.HoldsLineFeed(number, line, tagInside ? Severity::Fails : Severity::Note)) return;
    const Text meant = report_.Meant(number, line, Severity::Note);
    const QuickLoadKind* kind = TagMeant(meant, Below(number));
    if (!kind) {
      report_.HoldsInvisible(number, meant, Severity::Note, u"the tools skip the line as a note");
      return;
    }
    if (meant != line) return;  // a mark before the tag is told of already
    report_.Add(number, Severity::Fails, SlipOf(line, *kind),
                u"the tools skip the record: " + Text(kind->Tag) + u" must stand alone and so",
                Text(kind->Tag));
  }

  void Record(const QuickLoadRecord& record) {
    for (std::size_t field = 0; field < record.Fields.size(); ++field) {
      const Text& line = record.Fields[field];
      if (TagOf(line) || (line.find(u'<') == 0 && TagMeant(line, {})))
        return CutShort(record, field);
    }
    if (HoldsBlankLine(record)) return;
    std::vector<Text> meant;
    for (std::size_t field = 0; field < record.Fields.size(); ++field) {
      const auto line = LineOf(record, field);
      if (report_.HoldsLineFeed(line, record.Fields[field], Severity::Fails)) return;
      meant.push_back(report_.Meant(line, record.Fields[field], Severity::Fails));
    }
    Fields(record, meant);
  }

  void Fields(const QuickLoadRecord& record, const std::vector<Text>& meant) {
    report_.HoldsInvisible(LineOf(record, 0), meant[0], Severity::Fails,
                           u"the dialog shows it in the name");
    switch (record.Is) {
      case QuickLoadRecord::Kind::Layer:
        return Layer(LineOf(record, 1), meant[1]);
      case QuickLoadRecord::Kind::Query:
        queries_.emplace_back(LineOf(record, 1), meant[1]);
        return GoesOn(record);
      case QuickLoadRecord::Kind::Bookmark:
        return bookmarks_.Check(record);
    }
  }

  void CutShort(const QuickLoadRecord& record, std::size_t field) {
    const Text name(FieldName(record.Is, field));
    report_.Add(LineOf(record, field), Severity::Fails,
                u"the record of line " + report_.EditorLine(record.Line) +
                    u" is cut short: a tag stands where its " + name + u" should",
                u"the tools take the tag for the " + name + u" and miss the record that it opens",
                u"put before it the " + name + u": " + Example(record.Is, field));
  }

  /// A blank line that pushes the rest of the record down by one.
  bool HoldsBlankLine(const QuickLoadRecord& record) {
    const auto blank = std::find_if(record.Fields.begin(), record.Fields.end(),
                                    [](const Text& line) { return Trim(Visible(line)).empty(); });
    if (blank == record.Fields.end()) return false;
    const auto field = static_cast<std::size_t>(blank - record.Fields.begin());
    const auto behind = skipped_.find(LineOf(record, record.Fields.size()));
    const bool wellBelow = field == 0 && LooksLikeRecord(KindOf(record), record.Fields);
    if (wellBelow || behind == skipped_.end() || Trim(behind->second).empty()) {
      if (field > 0) return false;
      report_.Add(LineOf(record, 0), Severity::Note, u"the name is empty",
                  u"the dialog shows an empty row", Example(record.Is, 0));
      return false;
    }
    const bool last = field + 1 == record.Fields.size();
    const Text name(FieldName(record.Is, field));
    report_.Add(LineOf(record, field), Severity::Fails,
                u"a blank line stands where the " + name + u" should",
                u"the tools take it for the " + name + u", and miss the record's last line",
                u"delete the line, so that this one follows: " +
                    (last ? behind->second : record.Fields[field + 1]));
    return true;
  }

  /// A query of several lines, of which the tools keep the first.
  void GoesOn(const QuickLoadRecord& record) {
    const auto behind = skipped_.find(LineOf(record, 2));
    if (behind == skipped_.end()) return;
    const Text rest = Trim(Visible(behind->second));
    const bool goesOn =
        FindNoCase(rest, u"and ") == 0 || FindNoCase(rest, u"or ") == 0 || rest.starts_with(u")");
    if (!goesOn || rest.find_first_of(u"=<>\"'") == Text::npos) return;
    report_.Add(LineOf(record, 2), Severity::Fails, u"the query goes on in a second line",
                u"the tools keep its first line only", record.Fields[1] + u" " + rest);
  }

  void Layer(std::int32_t line, const Text& path) {
    const bool opens =
        report_.Path(line, path, u"choosing the layer says that no layer file was found",
                     [](const Text& other) { return other; });
    if (!opens || !module_.Host) return;
    const Text full = directory_ + path;
    if (!read_.insert(full).second) return;
    Ref<ILayer> layer;
    const bool read =
        Guard::Ignore([&] { layer = module_.Host->OpenLayerFile(full); }) == 0 && layer;
    if (!read) {
      return report_.Add(line, Severity::Fails, u"the layer file can't be read as one layer",
                         u"choosing the layer stops with an error",
                         u"save one layer in it anew; the line stays: " + path);
    }
    const bool told = !CheckSources(module_, directory_, full, findings_).empty();
    if (layer->Valid()) {
      layers_.push_back(layer);
    } else if (!told) {
      report_.Add(line, Severity::Fails, u"the data of the layer in this file is gone",
                  u"choosing the layer says that it is invalid",
                  u"put the data back, or save the layer file anew; the line stays: " + path);
    }
  }

  /// Last, when all layers are known.
  void Queries() {
    const auto maps = module_.Document ? module_.Document->Maps() : nullptr;
    for (std::int32_t index = 0; maps && index < maps->Count(); ++index) {
      const auto add = [&](const Ref<IObject>& item) { layers_.push_back(item); };
      Guard::Ignore([&] { ForEachValidItem(maps->Item(index), add); });
    }
    QueryCheck check(module_, layers_, report_);
    for (const auto& [line, query] : queries_) check.Check(line, query);
  }

  const CheckedModule& module_;
  const Text& directory_;
  FileReport& report_;
  std::vector<Finding>& findings_;
  BookmarkCheck bookmarks_{report_};
  std::map<std::int32_t, Text> skipped_;
  std::set<Text> read_;               // layer files
  std::vector<Ref<IObject>> layers_;  // that a student may ask
  std::vector<std::pair<std::int32_t, Text>> queries_;
};

}  // namespace

void CheckQuickLoad(const CheckedModule& module, const Text& directory,
                    std::vector<Finding>& findings) {
  const FileNames names{QuickLoadFile::kFileName, u"QuickLoad says that it can't find it",
                        u"add a shortcut, which makes the file"};
  const auto text = ReadInModule(module, directory, names, findings);
  if (!text) return;
  const Text path = directory + Text(names.Due);
  FileReport report(module, names.Due, directory, *text, findings);
  const Text start = text->Decoded().substr(0, 16);
  const bool tagFirst = std::any_of(std::begin(kQuickLoadKinds), std::end(kQuickLoadKinds),
                                    [&](const auto& kind) { return start.starts_with(kind.Tag); });
  if (!report.Form(tagFirst)) return;
  QuickLoadCheck(module, directory, report, findings).Read(path);
  if (!text->EndsInLineEnd()) {
    findings.push_back({Text(names.Due), text->LastEditorLine(), Severity::Note,
                        u"the last line has no line end",
                        u"a shortcut added by an editor command sticks to it and is never found",
                        u"press Enter behind it, or run check --fix"});
  }
}

}  // namespace brelmon
