// SPDX-License-Identifier: GPL-2.0-or-later
// The rules of a saved query: some layer of the module has to take it.
#pragma once

#include <map>
#include <vector>

#include "check/FileReport.h"

namespace brelmon {

class QueryCheck {
 public:
  /// `tables` are the valid layers and tables that students may ask.
  QueryCheck(const CheckedModule& module, std::vector<Ref<IObject>> tables, FileReport& report);
  void Check(std::int32_t line, const Text& query);

 private:
  struct Judged {
    Text Wrong, Mended;
  };
  Judged Judge(const Text& query) const;
  bool Taken(const Text& query) const;
  Text Repaired(const Text& query) const;
  bool IsField(const Text& name) const;

  const CheckedModule& module_;
  std::vector<Ref<IObject>> tables_;
  std::vector<Text> fields_;  // of all of them
  FileReport& report_;
};

}  // namespace brelmon
