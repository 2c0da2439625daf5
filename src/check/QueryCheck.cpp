// SPDX-License-Identifier: GPL-2.0-or-later
// Saved queries put to the layers; likely slips mended and put to them again.
#include "check/QueryCheck.h"

#include <algorithm>

#include "check/Spelling.h"
#include "frame/guard.h"

namespace brelmon {
namespace {

/// Typographic marks straightened, but for those inside a text in straight apostrophes.
Text WithStraightMarks(const Text& query) {
  const Text straight = Straightened(query);
  Text result = query;
  bool inText = false;
  for (std::size_t at = 0; at < query.size(); ++at) {
    if (!inText) result[at] = straight[at];
    if (query[at] == u'\'') inText = !inText;
  }
  return result;
}

Text Replaced(Text text, const Text& from, const Text& to) {
  if (from.empty()) return text;
  for (auto at = text.find(from); at != Text::npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
  return text;
}

/// A comma between digits as a point.
Text WithPoints(Text text) {
  const auto isDigit = [](char16_t unit) { return unit >= u'0' && unit <= u'9'; };
  for (std::size_t at = 1; at + 1 < text.size(); ++at) {
    if (text[at] == u',' && isDigit(text[at - 1]) && isDigit(text[at + 1])) text[at] = u'.';
  }
  return text;
}

/// Without an AND or OR that joins nothing.
Text WithoutJoin(const Text& query) {
  const Text bare = Trim(query);
  const auto blank = bare.rfind(u' ');
  if (blank == Text::npos) return bare;
  const Text last = bare.substr(blank + 1);
  const bool joins = EqualNoCase(last, u"and") || EqualNoCase(last, u"or");
  return joins ? Trim(bare.substr(0, blank)) : bare;
}

/// The last name in quotation marks closed where its word ends.
Text WithClosedName(Text query) {
  const auto open = query.rfind(u'"');
  if (open == Text::npos) return query;
  const auto end = query.find_first_of(u" <>=)", open);
  return query.insert(std::min(end, query.size()), u"\"");
}

std::vector<Text> Fields(const Ref<IObject>& table) {
  std::vector<Text> names;
  Guard::Ignore([&] {
    const auto view = table.As<ITableFields>();
    for (std::int32_t i = 0; i < view->FieldCount(); ++i) names.push_back(view->Field(i)->Name());
  });
  return names;
}

}  // namespace

QueryCheck::QueryCheck(const CheckedModule& module, std::vector<Ref<IObject>> tables,
                       FileReport& report)
    : module_(module), tables_(std::move(tables)), report_(report) {
  for (const auto& table : tables_) {
    for (Text& name : Fields(table)) fields_.push_back(std::move(name));
  }
}

void QueryCheck::Check(std::int32_t line, const Text& query) {
  const Text then = u"choosing it in the query dialog says that the query didn't work";
  if (Trim(Visible(query)).empty()) {
    return report_.Add(line, Severity::Fails, u"the query is missing",
                       u"QuickLoad shows an empty window", u"\"MAG\" > 5 (for example)");
  }
  if (report_.HoldsInvisible(line, query, Severity::Fails, then)) return;
  if (!module_.Host || tables_.empty() || Taken(query)) return;
  const Judged judged = Judge(query);
  report_.Add(line, Severity::Fails, judged.Wrong, then, judged.Mended);
}

QueryCheck::Judged QueryCheck::Judge(const Text& query) const {
  const Text straight = WithStraightMarks(query);
  if (straight != query) {
    return {u"typographic quotation marks stand in the query",
            Taken(straight) ? straight : Repaired(straight)};
  }
  const QueryWords words = module_.Host->WordsOf(query);
  Text wrong = u"no layer understands the query";
  if (!words.Fault.empty()) wrong += u": " + words.Fault;
  for (const Text& name : words.Fields) {
    if (!words.Fault.empty() || IsField(name)) continue;
    wrong = u"no layer has a field " + name;
    break;
  }
  return {wrong, Repaired(query)};
}

bool QueryCheck::IsField(const Text& name) const {
  return std::any_of(fields_.begin(), fields_.end(),
                     [&](const Text& field) { return EqualNoCase(field, name); });
}

bool QueryCheck::Taken(const Text& query) const {
  const auto filter = New<IQueryFilter>();
  filter->WhereClause = query;
  return std::any_of(tables_.begin(), tables_.end(), [&](const Ref<IObject>& table) {
    return Guard::Ignore([&] { table.As<ITable>()->RowCount(filter); }) == 0;
  });
}

Text QueryCheck::Repaired(const Text& query) const {
  Text named = query;
  for (const Text& name : module_.Host->WordsOf(query).Fields) {
    if (IsField(name)) continue;
    const Text quoted = u"\"" + name + u"\"", text = u"'" + name + u"'";
    const Text asText = Replaced(named, named.find(quoted) == Text::npos ? name : quoted, text);
    const auto near = Nearest(name, fields_, 3);
    named = Taken(asText) ? asText : near ? Replaced(named, name, *near) : named;
  }
  std::vector<Text> mended = {named, WithPoints(named), WithClosedName(query), WithoutJoin(named)};
  const std::pair<const char16_t*, const char16_t*> slips[] = {
      {u"==", u"="}, {u"=>", u">="},    {u"=<", u"<="},   {u"!=", u"<>"},   {u"><", u"<>"},
      {u">>", u">"}, {u"&&", u" AND "}, {u"&", u" AND "}, {u"||", u" OR "}, {u";", u""}};
  for (const auto& [from, to] : slips) mended.push_back(Replaced(named, from, to));
  for (const char16_t* end : {u")", u"\"", u"'", u" 0"}) mended.push_back(named + end);
  mended.push_back(u"(" + named);
  mended.push_back(named.substr(0, named.size() - 1));
  for (const Text& each : mended) {
    if (Taken(each)) return each;
  }
  return u"\"" + (fields_.empty() ? Text(u"MAG") : fields_.front()) + u"\" > 0 (for example)";
}

}  // namespace brelmon
