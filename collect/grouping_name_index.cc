// SPDX-License-Identifier: BSD-3-Clause
#include "collect/grouping_name_index.h"

#include <functional>

std::size_t GroupingNameIndex::hashOf(std::string_view name) noexcept {
  return std::hash<std::string_view>{}(name);
}

std::int32_t GroupingNameIndex::find(std::string_view name) const noexcept {
  const std::size_t hash = hashOf(name);
  for (const Entry* e = buckets_[hash % kBucketCount].load(std::memory_order_acquire); e; e = e->next)
    if (e->hash == hash && e->name == name) return e->id;
  return -1;
}

void GroupingNameIndex::publish(std::string_view name, std::int32_t id) {
  if (find(name) == id) return;
  auto entry = std::make_unique<Entry>();
  entry->name = std::string(name);
  entry->hash = hashOf(name);
  entry->id = id;
  auto& bucket = buckets_[entry->hash % kBucketCount];
  entry->next = bucket.load(std::memory_order_relaxed);
  const Entry* published = entry.get();
  entries_.push_back(std::move(entry));  // if this throws, nothing was published
  bucket.store(published, std::memory_order_release);
}
