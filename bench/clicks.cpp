// SPDX-License-Identifier: GPL-2.0-or-later
// Whole clicks in the headless host on the tables of bench/makedata, which BRELMON_BENCH_DATA
// names.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "cli/commandline.h"

namespace brelmon::cli {
namespace {

using Words = std::vector<std::string>;

std::string DataFolder() {
  const char* folder = std::getenv("BRELMON_BENCH_DATA");
  return folder == nullptr ? "build/bench-data" : folder;
}

/// Results are made, and go nowhere.
class Silence {
 public:
  Silence() : before_(std::cout.rdbuf(&nowhere_)) {}
  ~Silence() { std::cout.rdbuf(before_); }
  Silence(const Silence&) = delete;
  Silence& operator=(const Silence&) = delete;

 private:
  struct Nowhere : std::streambuf {
    int_type overflow(int_type unit) override { return traits_type::not_eof(unit); }
    std::streamsize xsputn(const char*, std::streamsize size) override { return size; }
  };
  Nowhere nowhere_;
  std::streambuf* before_;
};

std::string SummaryPath() { return DataFolder() + "/summary.dbf"; }

/// Runs the lines in a session of their own; only the last one is timed.
void RunLines(benchmark::State& state, const std::vector<Words>& lines) {
  const Silence silence;
  for (auto _ : state) {
    state.PauseTiming();
    std::filesystem::remove(SummaryPath());  // no summary is written over another
    auto session = std::make_unique<Session>(DataFolder() + "/bench.qgs");
    int status = kDone;
    for (const Words& words : lines) {
      const Line line = ParseLine(words);
      if (&words == &lines.back()) state.ResumeTiming();
      status = line.Run ? RunLine(*session, line, {}, "") : kUsage;
      if (status != kDone) break;
    }
    state.PauseTiming();
    session.reset();
    state.ResumeTiming();
    if (status != kDone) return state.SkipWithError("the action failed");
  }
}

void Register(const std::string& name, std::vector<Words> lines) {
  benchmark::RegisterBenchmark(name.c_str(),
                               [lines](benchmark::State& state) { RunLines(state, lines); })
      ->Unit(benchmark::kMillisecond)
      ->MeasureProcessCPUTime()
      ->UseRealTime();
}

/// A hundred thousand references; half of them are deleted.
constexpr int kReferences = 100'000;

std::string WriteQuickLoad() {
  const std::string folder = DataFolder() + "/quickload";
  std::filesystem::create_directories(folder);
  std::ofstream(folder + "/bench.qgs") << "<qgis><layer-tree-group/></qgis>\n";
  std::ofstream file(folder + "/QuickLoad.txt", std::ios::binary);
  for (int i = 0; i < kReferences; ++i) {
    file << "<Bookmark>\r\nBookmark " << i << "\r\n-98.25\r\n17.5\r\n-80.125\r\n31\r\n";
  }
  return folder;
}

void RunQuickLoad(benchmark::State& state, const Words& words) {
  const Silence silence;
  const Line line = ParseLine(words);
  for (auto _ : state) {
    state.PauseTiming();
    Session session(WriteQuickLoad());
    state.ResumeTiming();
    if (RunLine(session, line, {}, "") != kDone) return state.SkipWithError("the action failed");
  }
}

void RegisterAll() {
  for (const std::string rows : {"100000", "1000000"}) {
    Register("statistics/" + rows, {{"statistics", "points" + rows, "VAL_D", "CNT_I"}});
  }
  Register("values/texts", {{"values", "points1000000", "NAME_S"}});
  Register("values/numbers", {{"values", "points1000000", "VAL_D"}});
  Register("query/filter", {{"query", "points1000000", "VAL_D > 20", "--new", "--filter"}});
  Register("query/select", {{"query", "points1000000", "VAL_D > 20", "--new"}});
  Register("summarize",
           {{"summarize", "points1000000", "CAT_S", "--stat", "Minimum:VAL_D", "--stat",
             "Maximum:VAL_D", "--stat", "Sum:VAL_D", "--stat", "Average:VAL_D", "--stat",
             "Standard Deviation:VAL_D", "--output", SummaryPath()}});
  const Words pick = {"pick", "points1000000"};
  Register("selectall", {pick, {"click", "cmdSelectAll"}});
  Register("clear", {pick, {"click", "cmdSelectAll"}, {"click", "cmdSelectNone"}});
  Register("switch", {pick, {"click", "cmdSelectSwitch"}});

  Words odd = {"quickload", "delete"};
  for (int i = 1; i < kReferences; i += 2) odd.push_back(std::to_string(i));
  for (const auto& [name, words] : {std::pair<std::string, Words>{"list", {"quickload", "list"}},
                                    std::pair<std::string, Words>{"delete", odd}}) {
    benchmark::RegisterBenchmark(("quickload/" + name).c_str(),
                                 [words](benchmark::State& state) { RunQuickLoad(state, words); })
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
  }
}

}  // namespace
}  // namespace brelmon::cli

int main(int argc, char** argv) {
  brelmon::cli::RegisterAll();
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
}
