// SPDX-License-Identifier: GPL-2.0-or-later
// Conditions over the rows of a batch, a column at a time.
#pragma once

#include "hosts/columns/batch.h"
#include "hosts/columns/clausetree.h"

namespace brelmon::columns {

/// What a condition says of a row. `Broken` makes the whole clause false, whatever stands around
/// it: a date that is missing where one is compared.
enum class Answer : std::uint8_t { False, True, Broken };
using Answers = std::vector<Answer>;

class Condition {
 public:
  virtual ~Condition() = default;
  /// One answer for each of `rows`, which are rows of the batch.
  virtual void Decide(const Batch& batch, const std::vector<std::uint32_t>& rows,
                      Answers& answers) const = 0;
  /// Whether an answer may be `Broken`.
  virtual bool MayBreak() const { return false; }
};
using ConditionPtr = std::unique_ptr<Condition>;

/// Null where the tree holds something whose meaning isn't sure. The indices of the fields that are
/// tested go to `tested`, ascending.
ConditionPtr CompileCondition(const ClauseNode& node, const std::vector<Field>& fields,
                              std::vector<std::size_t>& tested);

/// Both compare bytes, ASCII letters without regard to case; below, at or above 0.
int CompareTexts(std::string_view one, std::string_view other);
bool AreSame(std::string_view one, std::string_view other, bool anyCase);
/// `%` stands for any bytes, `_` for one byte; `escape`, unless 0, makes what follows plain.
bool IsLike(std::string_view text, std::string_view pattern, char escape, bool anyCase);

/// "2026-11-16" or with slashes, a time of day behind a blank or a T; false for any other text.
bool ReadMoment(std::string_view text, Moment& moment);
int CompareMoments(const Moment& one, const Moment& other);

}  // namespace brelmon::columns
