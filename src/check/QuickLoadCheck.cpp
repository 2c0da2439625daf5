// SPDX-License-Identifier: GPL-2.0-or-later
// Tags, records, paths and numbers of QuickLoad.txt.
#include "check/QuickLoadCheck.h"

#include <algorithm>
#include <iterator>

#include "check/FileReport.h"
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

/// The kind whose tag the line is, or would be if nobody looked at blanks and capitals.
const QuickLoadKind* TagLike(const Text& line, bool exactly) {
  Text bare = line;
  if (!exactly) {
    std::replace(bare.begin(), bare.end(), u'\t', u' ');
    bare = Trim(bare);
  }
  const auto kind = std::find_if(
      std::begin(kQuickLoadKinds), std::end(kQuickLoadKinds),
      [&](const auto& each) { return exactly ? each.Tag == bare : EqualNoCase(each.Tag, bare); });
  return kind == std::end(kQuickLoadKinds) ? nullptr : kind;
}

class QuickLoadCheck {
 public:
  QuickLoadCheck(const CheckedModule& module, const Text& directory, FileReport& report)
      : module_(module), directory_(directory), report_(report) {}

  void Read(const Text& path) {
    textfile::Open(QuickLoadFile::kFileNumber, path, FileMode::Input);
    QuickLoadReader reader(
        QuickLoadFile::kFileNumber,
        [this](const Text& line, std::int32_t number) { Skipped(line, number); });
    const auto failed = Guard::Ignore([&] {
      while (const auto record = reader.Next()) Record(*record);
    });
    QuickLoadFile::Close();
    if (failed == 0) return;
    if (failed != failure::kInputPastEnd) Raise(failed);  // the disk's fault, not the author's
    const QuickLoadKind& kind = *reader.TagKind();
    const auto have = reader.Line() - reader.TagLine();
    report_.Add(
        reader.TagLine(), Severity::Fails,
        u"the record is cut short: " + GeneralText(have) + u" of " +
            GeneralText(static_cast<std::int32_t>(kind.FieldCount)) +
            u" lines stand behind its tag",
        u"QuickLoad stops with an error, and so does whatever reads the file after it, until "
        u"the map application is started anew",
        u"add behind line " + report_.EditorLine(reader.Line()) + u" the " +
            Text(FieldName(kind.Is, static_cast<std::size_t>(have))));
  }

 private:
  void Skipped(const Text& line, std::int32_t number) {
    const Text meant = report_.Meant(number, line, Severity::Note);
    const QuickLoadKind* kind = TagLike(meant, false);
    if (!kind || meant != line) return;  // a mark before the tag is told of already
    const bool blanks = !EqualNoCase(line, kind->Tag);
    report_.Add(number, Severity::Fails,
                blanks ? u"blanks stand around the tag" : u"the tag is written in the wrong case",
                u"the tools skip the record: " + Text(kind->Tag) + u" must stand alone and so",
                Text(kind->Tag));
  }

  void Record(const QuickLoadRecord& record) {
    for (std::size_t field = 0; field < record.Fields.size(); ++field) {
      if (!TagLike(record.Fields[field], true)) continue;
      return CutShort(record, field);
    }
    std::vector<Text> meant;
    for (std::size_t field = 0; field < record.Fields.size(); ++field) {
      meant.push_back(report_.Meant(LineOf(record, field), record.Fields[field], Severity::Fails));
    }
    if (record.Is == QuickLoadRecord::Kind::Layer) Layer(record, meant[1]);
    if (record.Is != QuickLoadRecord::Kind::Bookmark) return;
    for (std::size_t field = 1; field < meant.size(); ++field) {
      Number(LineOf(record, field), record.Fields[field]);
    }
  }

  static std::int32_t LineOf(const QuickLoadRecord& record, std::size_t field) {
    return record.Line + 1 + static_cast<std::int32_t>(field);
  }

  void CutShort(const QuickLoadRecord& record, std::size_t field) {
    const Text name(FieldName(record.Is, field));
    report_.Add(LineOf(record, field), Severity::Fails,
                u"the record of line " + report_.EditorLine(record.Line) +
                    u" is cut short: a tag stands "
                    u"where its " +
                    name + u" should",
                u"the tools take the tag for the " + name + u" and miss the record that it opens",
                u"put before it the " + name);
  }

  void Layer(const QuickLoadRecord& record, const Text& path) {
    const auto line = LineOf(record, 1);
    const Text full = directory_ + path;
    report_.File(line, path, full, u"choosing the layer says that no layer file was found",
                 [](const Text& other) { return other; });
    if (!module_.OpenLayerFile || !ExistFileDir(full)) return;
    Ref<ILayer> layer;
    const bool opened = Guard::Ignore([&] { layer = module_.OpenLayerFile(full); }) == 0 && layer;
    if (!opened) {
      report_.Add(line, Severity::Fails, u"the layer file can't be read as one layer",
                  u"choosing the layer stops with an error", u"save one layer in it");
    } else if (!layer->Valid()) {
      report_.Add(line, Severity::Fails, u"the data of the layer in this file is gone",
                  u"choosing the layer says that it is invalid",
                  u"put the data back, or save the layer file anew");
    }
  }

  void Number(std::int32_t line, const Text& text) {
    const auto value = ParseNumber(text);
    if (text.find(u',') == Text::npos) {
      if (value) return;
      return report_.Add(line, Severity::Fails, u"\"" + text + u"\" is no number",
                         u"choosing the bookmark stops with an error", u"a number such as -98.25");
    }
    Text mended = text;
    if (text.find(u'.') != Text::npos) {
      std::erase(mended, u',');
    } else {
      std::replace(mended.begin(), mended.end(), u',', u'.');
    }
    const bool understood = CurrentLocale().DecimalSymbol == u',';
    report_.Add(line, understood ? Severity::Note : Severity::Fails,
                u"the number is written with a comma",
                understood ? u"a computer with a decimal point misreads it"
                : value    ? u"the tools read it as " + GeneralText(*value)
                           : u"choosing the bookmark stops with an error",
                mended);
  }

  const CheckedModule& module_;
  const Text& directory_;
  FileReport& report_;
};

}  // namespace

void CheckQuickLoad(const CheckedModule& module, const Text& directory,
                    std::vector<Finding>& findings) {
  const Text name(QuickLoadFile::kFileName);
  const Text path = directory + name;
  if (!ExistFileDir(path)) {
    findings.push_back({name, 1, Severity::Note, u"there is no such file",
                        u"QuickLoad says that it can't find it",
                        u"add a shortcut, which makes the file"});
    return;
  }
  const ModuleText text = ModuleText::Read(*module.Files, path);
  FileReport report(name, directory, *module.Files, text, findings);
  const Text start = text.Decoded().substr(0, 16);
  const bool tagFirst = std::any_of(std::begin(kQuickLoadKinds), std::end(kQuickLoadKinds),
                                    [&](const auto& kind) { return start.starts_with(kind.Tag); });
  if (!report.Form(tagFirst)) return;
  QuickLoadCheck(module, directory, report).Read(path);
  if (!text.EndsInLineEnd()) {
    findings.push_back({name, text.LastEditorLine(), Severity::Note,
                        u"the last line has no line end",
                        u"a shortcut added by an editor command sticks to it and is never found",
                        u"press Enter behind it, or run check --fix"});
  }
}

}  // namespace brelmon
