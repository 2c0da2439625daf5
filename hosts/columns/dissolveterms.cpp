// SPDX-License-Identifier: GPL-2.0-or-later
// Reading terms, and ten characters that tell statistic and field.
#include "hosts/columns/dissolveterms.h"

#include <algorithm>
#include <set>

#include "hosts/common/hostfailure.h"

namespace brelmon::columns {
namespace {

constexpr std::size_t kNameBytes = 10;
constexpr std::size_t kMostColumns = 255;

struct Word {
  std::string_view word, prefix;
  Statistic statistic;
};
constexpr Word kWords[] = {
    {"Count", "Cnt_", Statistic::Count},     {"Minimum", "Min_", Statistic::Minimum},
    {"Maximum", "Max_", Statistic::Maximum}, {"Average", "Ave_", Statistic::Average},
    {"Sum", "Sum_", Statistic::Sum},         {"Variance", "Var_", Statistic::Variance},
    {"StdDev", "SD_", Statistic::StdDev},
};

Text Folded(std::string_view name) {
  Text folded = FromUtf8(name);
  for (char16_t& unit : folded) unit = FoldCase(unit);
  return folded;
}

/// The first bytes of a name, no character cut in two.
std::string Head(const std::string& name, std::size_t bytes) {
  if (name.size() <= bytes) return name;
  while (bytes > 0 && (static_cast<unsigned char>(name[bytes]) & 0xC0) == 0x80) --bytes;
  return name.substr(0, bytes);
}

std::string ColumnName(std::string_view prefix, const std::string& field, std::set<Text>& taken) {
  const std::string whole = std::string(prefix) + field;
  for (int n = 1;; ++n) {
    const std::string tail = n == 1 ? std::string() : "_" + std::to_string(n);
    std::string name = Head(whole, kNameBytes - tail.size()) + tail;
    if (taken.insert(Folded(name)).second) return name;
  }
}

/// The word that `term` begins with, a point behind it; null if there is none.
const Word* WordOf(std::string_view term) {
  const std::size_t point = term.find('.');
  if (point == std::string_view::npos) return nullptr;
  const Text word = FromUtf8(term.substr(0, point));
  const auto known = std::find_if(std::begin(kWords), std::end(kWords), [&](const auto& each) {
    return EqualNoCase(FromUtf8(each.word), word);
  });
  return known == std::end(kWords) ? nullptr : known;
}

/// Where the first term ends. The name of a field may hold what stands between terms.
std::size_t EndOfTerm(std::string_view terms) {
  std::size_t end = terms.find(", ");
  while (end != std::string_view::npos && !WordOf(terms.substr(end + 2))) {
    end = terms.find(", ", end + 1);
  }
  return std::min(end, terms.size());
}

bool IsNumeric(FieldType type) { return type <= FieldType::Double || type == FieldType::OID; }

void CheckType(Statistic statistic, const Field& field) {
  if (statistic == Statistic::Count || IsNumeric(field.Type)) return;
  const bool ordered = statistic == Statistic::Minimum || statistic == Statistic::Maximum;
  if (ordered && (field.Type == FieldType::String || field.Type == FieldType::Date)) return;
  host::Fail(failure::kTypeMismatch, "The field " + field.Name + " has no such statistic.");
}

}  // namespace

std::size_t FieldNamed(const std::vector<Field>& fields, std::string_view name) {
  const auto matching = [&](const auto& matches) {
    return static_cast<std::size_t>(std::find_if(fields.begin(), fields.end(), matches) -
                                    fields.begin());
  };
  const Text wanted = FromUtf8(name);
  std::size_t found = matching([&](const auto& each) { return each.Name == name; });
  if (found == fields.size()) {
    found = matching([&](const auto& each) { return EqualNoCase(FromUtf8(each.Name), wanted); });
  }
  if (found < fields.size()) return found;
  host::Fail(failure::kInvalidCall, "There is no field " + std::string(name) + ".");
}

std::vector<DissolveTerm> ParseTerms(std::string_view summary, const std::vector<Field>& fields) {
  std::vector<DissolveTerm> terms;
  std::set<Text> taken;
  for (std::size_t at = 0; at < summary.size();) {
    const std::string_view term = summary.substr(at, EndOfTerm(summary.substr(at)));
    at += term.size() + 2;
    const Word* word = WordOf(term);
    if (!word) {
      host::Fail(failure::kInvalidCall,
                 "The summary can't be read at \"" + std::string(term) + "\".");
    }
    const std::size_t field = FieldNamed(fields, term.substr(term.find('.') + 1));
    CheckType(word->statistic, fields[field]);
    terms.push_back({word->statistic, field, ColumnName(word->prefix, fields[field].Name, taken)});
  }
  if (terms.empty()) host::Fail(failure::kInvalidCall, "A summary needs a column at least.");
  if (terms.size() > kMostColumns) {
    host::Fail(failure::kOverflow, "The summary has " + std::to_string(terms.size()) +
                                       " columns; a dBASE table holds 255 at most.");
  }
  return terms;
}

}  // namespace brelmon::columns
