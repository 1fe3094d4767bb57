// SPDX-License-Identifier: BSD-3-Clause
// The process's memory counters, read cheaply enough for every logged point:
// one pread of a kept-open /proc/self/statm and one getrusage call.
#pragma once

#include <cstdint>

namespace tg::host {

struct ProcessCounters {
  std::uint64_t residentBytes = 0;      // resident set size (the working set)
  // Its peak over the process's life: never below residentBytes, and never
  // below a peak read before in the same process.
  std::uint64_t peakResidentBytes = 0;
  std::uint64_t virtualBytes = 0;       // virtual size (the page file usage)
};

// Fills `out`; false (and `out` untouched) when the counters can't be read.
// Safe to call from several threads and in a child after fork.
bool readProcessCounters(ProcessCounters& out) noexcept;

}  // namespace tg::host
