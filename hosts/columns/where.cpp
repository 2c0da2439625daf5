// SPDX-License-Identifier: GPL-2.0-or-later
// From the tree of a clause to conditions with types; what isn't sure to be understood isn't.
#include "hosts/columns/where.h"

#include <algorithm>

#include "hosts/columns/clausetree.h"
#include "hosts/columns/conditions.h"

namespace brelmon::columns {
namespace {

class CompiledWhere : public Where {
 public:
  CompiledWhere(ConditionPtr condition, std::vector<std::size_t> fields)
      : condition_(std::move(condition)), fields_(std::move(fields)) {}
  const std::vector<std::size_t>& Fields() const override { return fields_; }

  void Keep(Batch& batch) const override {
    Answers answers(batch.Live.size());
    condition_->Decide(batch, batch.Live, answers);
    std::size_t kept = 0;
    for (std::size_t i = 0; i < answers.size(); ++i) {
      if (answers[i] == Answer::True) batch.Live[kept++] = batch.Live[i];
    }
    batch.Live.resize(kept);
  }

 private:
  ConditionPtr condition_;
  std::vector<std::size_t> fields_;
};

/// GDAL gives up on expressions of 32 levels. Well below that, whether it does is left to it.
constexpr int kDeepest = 24;

int LevelsOf(const ClauseNode& node) {
  int below = 0;
  for (const auto& part : node.parts) below = std::max(below, LevelsOf(*part));
  return below + 1;
}

}  // namespace

Compiled CompileWhere(TextView clause, const std::vector<Field>& fields) {
  const auto tree = ReadClause(ToUtf8(clause));
  if (!tree || LevelsOf(*tree) > kDeepest) return {};
  std::vector<std::size_t> tested;
  ConditionPtr condition = CompileCondition(*tree, fields, tested);
  if (!condition) return {};
  return {std::make_unique<CompiledWhere>(std::move(condition), std::move(tested)), {}};
}

}  // namespace brelmon::columns
