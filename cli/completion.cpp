// SPDX-License-Identifier: GPL-2.0-or-later
// Candidates by place in the line.
#include "cli/completion.h"

#include <algorithm>

#include "cli/commandline.h"
#include "cli/items.h"
#include "cli/words.h"
#include "frame/commandtable.h"

namespace brelmon::cli {
namespace {

std::string Escaped(const std::string& name) {
  std::string escaped;
  for (const char unit : name) {
    if (std::string_view(" \t\\\"'#").find(unit) != std::string_view::npos) escaped += '\\';
    escaped += unit;
  }
  return escaped;
}

std::string Unescaped(const std::string& typed) {
  std::string name;
  for (std::size_t i = 0; i < typed.size(); ++i) {
    if (typed[i] == '\\' && i + 1 < typed.size()) ++i;
    name += typed[i];
  }
  return name;
}

}  // namespace

void Completer::Look(const std::string& before, const std::string& begun, bool quoted) {
  found_.clear();
  std::vector<std::string> names;
  try {
    const bool opened = quoted && !before.empty();  // the quote itself stands in `before`
    const auto words = SplitWords(opened ? before.substr(0, before.size() - 1) : before);
    names = Candidates(words);
  } catch (const std::exception&) {
    return;  // nothing to offer on a line that makes no sense yet
  }
  const std::string start = quoted ? begun : Unescaped(begun);
  for (const std::string& name : names) {
    if (name.starts_with(start)) found_.push_back(quoted ? name : Escaped(name));
  }
}

std::vector<std::string> Completer::Candidates(const std::vector<std::string>& words) {
  if (words.empty()) return ActionNames();
  if (auto more = ActionNames(words[0]); !more.empty()) {
    return words.size() == 1 ? more : std::vector<std::string>();
  }
  if (words[0] == "publish") return {"--single"};
  if (words[0] == "tab") return {"Display", "Source", "Selection"};
  std::vector<std::string> names;
  if (words[0] == "click") {
    for (const CommandInfo& info : CommandTable()) names.push_back(ToUtf8(info.ClassName));
    return names;
  }
  auto items = ItemsOf(session_.Host());
  if (words[0] == "frame") {
    std::erase_if(items, [](const Item& item) { return item.Depth > 0; });
    if (words.size() > 1) return {};
  }
  if (words.size() > 1 && words[0] != "pick") {
    const Item& item = FindItem(items, words[1]);
    for (const Field& field : FieldsOf(item)) {
      if (field.Visible) names.push_back(ToUtf8(field.Alias));
    }
    return names;
  }
  for (const Item& item : items) names.push_back(ToUtf8(item.Name));
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

}  // namespace brelmon::cli
