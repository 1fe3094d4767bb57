// SPDX-License-Identifier: BSD-3-Clause
// Per-grouping switch states (1 on, 0 off, -1 never set), indexed by grouping
// id. Readers need no lock: entries live in segments that never move once
// published, so a logging thread can test a state while another thread grows
// the array or switches a grouping. Writers (set, growTo) must be serialised
// by the caller; the store does this under its mutex.
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>

class GroupingStateArray {
 public:
  // Makes `initialSize` entries, each -1.
  explicit GroupingStateArray(std::size_t initialSize = 0);
  GroupingStateArray(const GroupingStateArray&) = delete;
  GroupingStateArray& operator=(const GroupingStateArray&) = delete;

  std::size_t size() const noexcept { return size_.load(std::memory_order_acquire); }

  // The state of `id`; -1 for an id outside the array.
  std::int32_t operator[](std::int64_t id) const noexcept {
    if (id < 0 || static_cast<std::uint64_t>(id) >= size_.load(std::memory_order_acquire)) return -1;
    const Slot slot = slotOf(static_cast<std::size_t>(id));
    return segments_[slot.segment].load(std::memory_order_relaxed)[slot.offset].load(std::memory_order_relaxed);
  }

  // True when at least one entry is 1. Lets the disabled log path skip the
  // name lookup entirely while nothing is switched on.
  bool anyEnabled() const noexcept { return enabledCount_.load(std::memory_order_relaxed) != 0; }

  // Grows to at least `count` entries, filling with -1. Never shrinks.
  void growTo(std::size_t count);
  // Sets the state of `id`, growing the array first when needed.
  void set(std::size_t id, std::int32_t state);

  // Upper bound on entries; ids are signed 32-bit values.
  static constexpr std::size_t kMaxEntries = std::size_t{1} << 31;

 private:
  // Segment s holds kFirstSegment << s entries and starts at
  // kFirstSegment * (2^s - 1), so ids map to segments with a bit scan.
  static constexpr std::size_t kFirstSegment = 32;
  static constexpr std::size_t kSegmentCount = 27;

  struct Slot {
    std::size_t segment;
    std::size_t offset;
  };
  static Slot slotOf(std::size_t id) noexcept {
    const std::size_t segment = bitWidth(id / kFirstSegment + 1) - 1;
    return {segment, id - segmentStart(segment)};
  }
  // Number of bits needed for n >= 1 (C++20's std::bit_width, kept to a
  // builtin so that this header also compiles as C++17).
  static std::size_t bitWidth(std::size_t n) noexcept {
    return static_cast<std::size_t>(64 - __builtin_clzll(static_cast<unsigned long long>(n)));
  }
  static std::size_t segmentStart(std::size_t segment) noexcept { return kFirstSegment * ((std::size_t{1} << segment) - 1); }

  std::atomic<std::size_t> size_{0};
  std::atomic<std::size_t> enabledCount_{0};
  std::array<std::atomic<std::atomic<std::int32_t>*>, kSegmentCount> segments_{};
  std::array<std::unique_ptr<std::atomic<std::int32_t>[]>, kSegmentCount> owned_;
};
