// SPDX-License-Identifier: GPL-2.0-or-later
// A short list: a walk through it costs nothing beside a dataset.
#include "hosts/data/handlepool.h"

#include <algorithm>

namespace brelmon::data {

HandlePool& HandlePool::Instance() {
  // Never destroyed: GDAL may be gone by then.
  static auto* pool = new HandlePool;
  return *pool;
}

HandlePool::Handle HandlePool::Take(const void* owner) {
  const auto hit = std::find_if(idle_.begin(), idle_.end(),
                                [&](const auto& each) { return each.first == owner; });
  if (hit == idle_.end()) return {};
  Handle handle = std::move(hit->second);
  idle_.erase(hit);
  return handle;
}

void HandlePool::Give(const void* owner, Handle handle) {
  const auto mine = std::count_if(idle_.begin(), idle_.end(),
                                  [&](const auto& each) { return each.first == owner; });
  if (mine >= static_cast<std::ptrdiff_t>(kMostOfOne)) return;
  idle_.emplace_front(owner, std::move(handle));
  if (idle_.size() > kMost) idle_.pop_back();
}

void HandlePool::Drop(const void* owner) {
  idle_.remove_if([&](const auto& each) { return each.first == owner; });
}

}  // namespace brelmon::data
