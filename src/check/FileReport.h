// SPDX-License-Identifier: GPL-2.0-or-later
// Gathers the findings of one text file; what holds for both files alike.
#pragma once

#include <functional>
#include <optional>

#include "check/ModuleCheck.h"
#include "check/ModuleText.h"
#include "check/PathCheck.h"

namespace brelmon {

/// A text file of the module, and what is said where it isn't there.
struct FileNames {
  TextView Due;        // as the tools look for it
  TextView Then;       // what they do where it isn't there
  TextView Otherwise;  // what an author without it may do
};

class FileReport {
 public:
  /// `directory` is the document's, with its closing backslash. All must outlive the report.
  FileReport(const CheckedModule& module, TextView file, const Text& directory,
             const ModuleText& text, std::vector<Finding>& findings)
      : module_(module), file_(file), directory_(directory), text_(text), findings_(findings) {}

  /// The number of the tools' line `line` as an editor counts, as text.
  Text EditorLine(std::int32_t line) const;
  /// `line` is the tools' own count.
  void Add(std::int32_t line, Severity grade, Text wrong, Text then, Text mended);

  /// How many there are so far.
  std::size_t Findings() const { return findings_.size(); }

  /// Encoding and line ends of the file as a whole. False where the tools find nothing in it to
  /// look at. `firstLineMatters`: a byte-order mark spoils the first line.
  bool Form(bool firstLineMatters);
  /// Tells of a line that was written as UTF-8; gives what its author meant.
  Text Meant(std::int32_t line, const Text& asRead, Severity grade);
  /// Tells of a line feed in what the tools take for one line; false where there is none.
  bool HoldsLineFeed(std::int32_t line, const Text& asRead, Severity grade);
  /// Tells of control characters; false where there are none. `then` is what they do.
  bool HoldsInvisible(std::int32_t line, const Text& text, Severity grade, const Text& then);
  PathVerdict Judge(const Text& path) const;
  /// Whether a path from the document's folder leads to something.
  bool IsFile(const Text& path) const;
  /// A path that counts from the document's folder; `then` is what the tools do if the file isn't
  /// there, `remake` makes the line with another path. False where it can't be opened.
  bool Path(std::int32_t line, const Text& written, const Text& then,
            const std::function<Text(const Text& path)>& remake);
  /// Tells of a file or address that isn't handed to its default program; false where it is.
  bool Refused(std::int32_t line, const Text& location);

 private:
  /// Tells of a file whose last writer was killed before it had written all.
  void Stopped();

  const CheckedModule& module_;
  Text file_;
  const Text& directory_;
  const ModuleText& text_;
  std::vector<Finding>& findings_;
};

/// The file's text; nothing, and told, where it isn't there or can't be read.
std::optional<ModuleText> ReadInModule(const CheckedModule& module, const Text& directory,
                                       const FileNames& names, std::vector<Finding>& findings);

}  // namespace brelmon
