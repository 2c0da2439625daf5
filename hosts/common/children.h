// SPDX-License-Identifier: GPL-2.0-or-later
// Programs that were started and go on by themselves.
#pragma once

#include <sys/types.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace brelmon::host {

class Child {
 public:
  explicit Child(pid_t number);
  ~Child();
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  /// Can be read from once the program has ended; -1 where the system has no such thing. Valid as
  /// long as this object.
  int EndDescriptor() const { return end_; }
  /// Waits for the end, not longer than that; whether the program has ended by itself or not.
  bool EndsWithin(int milliseconds);
  /// The exit status, 128 for one that was killed; none while it runs.
  std::optional<int> Status();

 private:
  pid_t number_;
  int end_;
  std::optional<int> status_;
};

class Children {
 public:
  /// Starts a program, in `folder` where that is there; null where it can't be started. A session's
  /// lines on standard input are not for it. None stays behind as a zombie once another is started.
  std::shared_ptr<Child> Spawn(const std::vector<std::string>& words, const std::string& folder);

 private:
  std::vector<std::shared_ptr<Child>> running_;
};

}  // namespace brelmon::host
