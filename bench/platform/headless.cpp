// SPDX-License-Identifier: GPL-2.0-or-later
// bench_headless DOCUMENT LAYER QUERY FOLDER: the jobs in the headless host.
#include <iostream>

#include "bench/platform/jobs.h"
#include "hosts/common/paths.h"
#include "hosts/headless/headlesshost.h"

int main(int count, char** words) {
  using namespace brelmon;
  if (count != 5) return 2;
  try {
    headless::HeadlessHost host(words[1]);
    bench::RunJobs(
        {host.Document(), host.HostServices().objects,
         [](const std::function<void()>& deed) { deed(); }},
        {FromUtf8(words[2]), FromUtf8(words[3]), host::Paths().ToWindows(words[4]) + u"\\"},
        std::cout);
  } catch (const Failure& failure) {
    std::cerr << ToUtf8(failure.Description) << '\n';
    return 1;
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
  }
}
