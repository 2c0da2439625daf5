// SPDX-License-Identifier: GPL-2.0-or-later
// Open datasets that nobody reads at the moment: few for the whole process, however many layers.
#pragma once

#include <ogrsf_frmts.h>

#include <list>
#include <utility>

namespace brelmon::data {

class HandlePool {
 public:
  using Handle = std::pair<GDALDatasetUniquePtr, OGRLayer*>;

  /// The one of the process.
  static HandlePool& Instance();

  /// One of the owner's, or nothing.
  Handle Take(const void* owner);
  /// The one that has waited longest is closed where there are too many.
  void Give(const void* owner, Handle handle);
  void Drop(const void* owner);
  /// Closes all that wait.
  void DropAll() { idle_.clear(); }

 private:
  static constexpr std::size_t kMost = 32, kMostOfOne = 2;
  std::list<std::pair<const void*, Handle>> idle_;  // the latest in front
};

}  // namespace brelmon::data
