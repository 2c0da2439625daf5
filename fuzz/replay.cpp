// SPDX-License-Identifier: GPL-2.0-or-later
// A target without a fuzzer: the kept inputs, and some thousand of their neighbours.
#include <chrono>
#include <cstdio>
#include <random>
#include <vector>

#include "fuzz/input.h"

namespace {

std::string ReadWhole(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void Run(const std::string& bytes) {
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

/// One to four places changed, cut out or doubled.
std::string Neighbour(std::string bytes, std::mt19937& random) {
  for (unsigned i = random() % 4; !bytes.empty() && i < 4; ++i) {
    const std::size_t at = random() % bytes.size(), length = 1 + random() % 8;
    switch (random() % 3) {
      case 0:
        bytes[at] = static_cast<char>(random());
        break;
      case 1:
        bytes.erase(at, length);
        break;
      default:
        bytes.insert(at, bytes.substr(random() % bytes.size(), length));
    }
  }
  return bytes;
}

}  // namespace

/// Arguments: the folder of the kept inputs, how many neighbours, the seed.
int main(int argc, char** argv) {
  if (argc != 4) return 2;
  std::vector<std::string> kept;
  for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
    kept.push_back(ReadWhole(entry.path()));
  }
  if (kept.empty()) return 2;
  for (const std::string& each : kept) Run(each);
  std::mt19937 random(static_cast<unsigned>(std::stoul(argv[3])));
  const unsigned long count = std::stoul(argv[2]);
  for (unsigned long i = 0; i < count; ++i) Run(Neighbour(kept[random() % kept.size()], random));
  std::printf("%zu kept inputs, %lu neighbours\n", kept.size(), count);
  return 0;
}
