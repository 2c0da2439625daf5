// SPDX-License-Identifier: GPL-2.0-or-later
// Gathers the findings of one text file; what holds for both files alike.
#pragma once

#include <functional>

#include "check/Finding.h"
#include "check/ModuleText.h"

namespace brelmon {

class FileReport {
 public:
  /// `directory` is the document's, with its closing backslash. All must outlive the report.
  FileReport(TextView file, const Text& directory, IFileSystem& files, const ModuleText& text,
             std::vector<Finding>& findings)
      : file_(file), directory_(directory), files_(files), text_(text), findings_(findings) {}

  /// The number of the tools' line `line` as an editor counts, as text.
  Text EditorLine(std::int32_t line) const;
  /// `line` is the tools' own count.
  void Add(std::int32_t line, Severity grade, Text wrong, Text then, Text mended);

  /// Encoding and line ends of the file as a whole. False where the tools find nothing in it to
  /// look at. `firstLineMatters`: a byte-order mark spoils the first line.
  bool Form(bool firstLineMatters);
  /// Tells of a line that was written as UTF-8; gives what its author meant.
  Text Meant(std::int32_t line, const Text& asRead, Severity grade);
  /// A file beside the document. `written` is the path in the line, `full` what the tools make of
  /// it, `then` what they do if it isn't there; `remake` makes the line with another path.
  void File(std::int32_t line, const Text& written, const Text& full, const Text& then,
            const std::function<Text(const Text& path)>& remake);

 private:
  void Missing(std::int32_t line, const Text& written, const Text& then,
               const std::function<Text(const Text& path)>& remake);
  bool Exists(const Text& path) const;

  Text file_;
  const Text& directory_;
  IFileSystem& files_;
  const ModuleText& text_;
  std::vector<Finding>& findings_;
};

}  // namespace brelmon
