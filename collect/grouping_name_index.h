// SPDX-License-Identifier: BSD-3-Clause
// Name-to-id index of the groupings that have been switched, readable without
// a lock. The disabled log path uses it to find a grouping named by the
// caller while another thread may be adding groupings. Entries are only ever
// added: a published entry is never changed or freed while the index lives,
// and a newer entry for the same name shadows the older one. Writers must be
// serialised by the caller; the store does this under its mutex.
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class GroupingNameIndex {
 public:
  GroupingNameIndex() = default;
  GroupingNameIndex(const GroupingNameIndex&) = delete;
  GroupingNameIndex& operator=(const GroupingNameIndex&) = delete;

  // The id published for `name`, or -1.
  std::int32_t find(std::string_view name) const noexcept;
  // Makes `name` map to `id` (no-op when it already does).
  void publish(std::string_view name, std::int32_t id);

 private:
  struct Entry {
    std::string name;
    std::size_t hash = 0;
    std::int32_t id = -1;
    const Entry* next = nullptr;
  };
  static constexpr std::size_t kBucketCount = 4096;
  static std::size_t hashOf(std::string_view name) noexcept;

  std::array<std::atomic<const Entry*>, kBucketCount> buckets_{};
  std::vector<std::unique_ptr<Entry>> entries_;  // owns what the buckets point to
};
