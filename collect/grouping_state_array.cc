// SPDX-License-Identifier: BSD-3-Clause
#include "collect/grouping_state_array.h"

#include <new>

GroupingStateArray::GroupingStateArray(std::size_t initialSize) { growTo(initialSize); }

void GroupingStateArray::growTo(std::size_t count) {
  const std::size_t current = size_.load(std::memory_order_relaxed);
  if (count <= current) return;
  if (count > kMaxEntries) throw std::bad_alloc();
  // Allocate (and fill with -1) every segment the new size reaches before the
  // size is published, so a reader that sees the size sees filled segments.
  const std::size_t lastSegment = slotOf(count - 1).segment;
  for (std::size_t s = 0; s <= lastSegment; ++s) {
    if (owned_[s]) continue;
    const std::size_t length = kFirstSegment << s;
    auto segment = std::make_unique<std::atomic<std::int32_t>[]>(length);
    for (std::size_t i = 0; i < length; ++i) segment[i].store(-1, std::memory_order_relaxed);
    segments_[s].store(segment.get(), std::memory_order_release);
    owned_[s] = std::move(segment);
  }
  size_.store(count, std::memory_order_release);
}

void GroupingStateArray::set(std::size_t id, std::int32_t state) {
  growTo(id + 1);
  const Slot slot = slotOf(id);
  auto& entry = segments_[slot.segment].load(std::memory_order_relaxed)[slot.offset];
  const std::int32_t old = entry.exchange(state, std::memory_order_relaxed);
  if (old != 1 && state == 1) enabledCount_.fetch_add(1, std::memory_order_relaxed);
  if (old == 1 && state != 1) enabledCount_.fetch_sub(1, std::memory_order_relaxed);
}
