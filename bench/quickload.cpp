// SPDX-License-Identifier: GPL-2.0-or-later
// A QuickLoad file of a hundred thousand references: read, listed for deletion, rewritten.
#include <benchmark/benchmark.h>

#include "platform/services.h"
#include "quickload/QuickLoadFile.h"
#include "quickload/frm_QLDelete.h"

namespace brelmon {
namespace {

/// One file in memory, whatever its path.
class OneFile : public IFileSystem {
 public:
  std::string bytes;

  std::int32_t Attributes(const Text&) override { return 0; }
  std::unique_ptr<IByteStream> Open(const Text&, FileMode mode) override {
    if (mode == FileMode::Output) bytes.clear();
    return std::make_unique<Stream>(bytes);
  }
  Text FromTyped(const Text& typed) override { return typed; }
  std::int32_t GetLongPathName(const Text&, Text&) override { return 0; }
  std::int32_t GetTempPath(Text&) override { return 0; }

 private:
  struct Stream : IByteStream {
    explicit Stream(std::string& all) : all_(all) {}
    std::string Read(std::size_t size) override {
      std::string read = all_.substr(at_, size);
      at_ += read.size();
      return read;
    }
    void Write(const std::string& more) override { all_ += more; }
    void Close() override {}
    std::string& all_;
    std::size_t at_ = 0;
  };
};

std::vector<QuickLoadRecord> Bookmarks(std::int64_t count) {
  std::vector<QuickLoadRecord> records;
  for (std::int64_t i = 0; i < count; ++i) {
    records.push_back({QuickLoadRecord::Kind::Bookmark,
                       {u"Gulf of Mexico", u"-98.25", u"17.5", u"-80.125", u"31"},
                       0});
  }
  return records;
}

void BM_DeleteEverySecondReference(benchmark::State& state) {
  OneFile files;
  Services services;
  services.files = &files;
  const ServicesScope scope(services);
  const auto all = Bookmarks(state.range(0));
  for (auto _ : state) {
    state.PauseTiming();
    QuickLoadFile::Rewrite(u"Q", all);
    state.ResumeTiming();
    auto records = QuickLoadFile::Read(u"Q");
    frm_QLDelete dialog;
    for (const auto& record : records) dialog.lbxReferences.AddItem(record.Fields.front());
    std::vector<QuickLoadRecord> kept;
    for (std::size_t row = 0; row < records.size(); ++row) {
      const auto number = static_cast<std::int32_t>(row);
      if (row % 2 == 0) dialog.lbxReferences.SetSelected(number, true);
      if (!dialog.lbxReferences.Selected(number)) kept.push_back(std::move(records[row]));
    }
    QuickLoadFile::Rewrite(u"Q", kept);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_DeleteEverySecondReference)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brelmon
