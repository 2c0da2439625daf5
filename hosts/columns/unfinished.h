// SPDX-License-Identifier: GPL-2.0-or-later
// Files that are being written under a passing name: gone when their run ends, however it ends.
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdio>
#include <string>

namespace brelmon::columns {

/// What only a host can tell of processes. Where none tells, a passing name bears 0 and what an
/// ended run left behind stays.
struct Processes {
  long (*Own)() = nullptr;
  bool (*Lives)(long number) = nullptr;
};

namespace detail {
struct UnfinishedSlot {
  std::atomic<bool> used = false;
  std::array<char, 4096> path{};
};
}  // namespace detail

/// The files of this process. A signal handler may ask for their removal at any moment.
class Unfinished {
 public:
  static void SetProcesses(const Processes& processes) { processes_ = processes; }
  static const Processes& TheProcesses() { return processes_; }

  /// Too long a path, or one too many, is kept by nobody: it stays if the process is killed.
  static void Keep(const std::string& path) {
    for (Slot& slot : slots_) {
      if (slot.used.load() || path.size() >= slot.path.size()) continue;
      slot.path[path.copy(slot.path.data(), path.size())] = '\0';
      slot.used.store(true);
      return;
    }
  }
  static void Forget(const std::string& path) {
    for (Slot& slot : slots_) {
      if (slot.used.load() && path == slot.path.data()) slot.used.store(false);
    }
  }
  /// Calls nothing that a signal handler may not call.
  static void RemoveAll() {
    for (const Slot& slot : slots_) {
      if (slot.used.load()) std::remove(slot.path.data());
    }
  }

 private:
  using Slot = detail::UnfinishedSlot;
  inline static Processes processes_;
  inline static std::array<Slot, 8> slots_;
};

}  // namespace brelmon::columns
