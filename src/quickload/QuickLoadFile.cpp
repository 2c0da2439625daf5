// SPDX-License-Identifier: GPL-2.0-or-later
// Records of QuickLoad.txt over the numbered text files.
#include "quickload/QuickLoadFile.h"

#include <algorithm>
#include <iterator>

#include "platform/codepage.h"
#include "platform/failure.h"
#include "platform/textfile.h"

namespace brelmon {

const QuickLoadKind& KindOf(const QuickLoadRecord& record) {
  return kQuickLoadKinds[static_cast<std::size_t>(record.Is)];
}

Text QuickLoadReader::ReadLine() {
  Text line = textfile::LineInput(file_);
  ++line_;
  return line;
}

std::optional<QuickLoadRecord> QuickLoadReader::Next() {
  while (!textfile::AtEnd(file_)) {
    const Text line = ReadLine();
    const auto kind = std::find_if(std::begin(kQuickLoadKinds), std::end(kQuickLoadKinds),
                                   [&](const auto& each) { return each.Tag == line; });
    if (kind == std::end(kQuickLoadKinds)) {
      if (skipped_) skipped_(line, line_);
      continue;
    }
    tagLine_ = line_;
    tagKind_ = kind;
    QuickLoadRecord record{kind->Is, {}, tagLine_};
    record.Fields.reserve(kind->FieldCount);
    while (record.Fields.size() < kind->FieldCount) record.Fields.push_back(ReadLine());
    return record;
  }
  return {};
}

namespace QuickLoadFile {
namespace {

/// Before the file is touched: a letter that it can't hold would be written as a question mark.
void RefuseMisfits(const std::vector<QuickLoadRecord>& records) {
  for (const auto& record : records) {
    for (const Text& field : record.Fields) {
      const Text misfit = FirstMisfit(field);
      if (misfit.empty()) continue;
      Raise(failure::kInvalidCall, u"QuickLoad.txt can't hold the letter \"" + misfit +
                                       u"\" of \"" + field +
                                       u"\": its encoding, Windows-1252, has no such letter. "
                                       u"Nothing was written.");
    }
  }
}

void Write(const Text& path, FileMode mode, const std::vector<QuickLoadRecord>& records) {
  RefuseMisfits(records);
  textfile::Open(kFileNumber, path, mode);
  for (const auto& record : records) {
    textfile::PrintLine(kFileNumber, Text(KindOf(record).Tag));
    for (const Text& field : record.Fields) textfile::PrintLine(kFileNumber, field);
  }
  Close();
}

}  // namespace

std::vector<QuickLoadRecord> OpenAndRead(const Text& path) {
  textfile::Open(kFileNumber, path, FileMode::Input);
  std::vector<QuickLoadRecord> records;
  QuickLoadReader reader(kFileNumber);
  while (auto record = reader.Next()) records.push_back(std::move(*record));
  return records;
}

std::vector<QuickLoadRecord> Read(const Text& path) {
  auto records = OpenAndRead(path);
  Close();
  return records;
}

void Close() { textfile::Close(kFileNumber); }

void Append(const Text& path, const std::vector<QuickLoadRecord>& records) {
  Write(path, FileMode::Append, records);
}

void Rewrite(const Text& path, const std::vector<QuickLoadRecord>& records) {
  Write(path, FileMode::Output, records);
}

}  // namespace QuickLoadFile
}  // namespace brelmon
