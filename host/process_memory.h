// SPDX-License-Identifier: BSD-3-Clause
// The process's counters a logged point records, read cheaply enough for
// every point: one pread of a kept-open /proc/self/statm and one getrusage
// call, which gives the peak and the CPU time together. Every system call
// counts: each one costs a microsecond or more here, and the first one after
// a stretch of interpreter work costs several times that.
#pragma once

#include <cstdint>

namespace tg::host {

struct ProcessCounters {
  std::uint64_t residentBytes = 0;      // resident set size (the working set)
  // Its peak over the process's life: never below residentBytes, and never
  // below a peak read before in the same process.
  std::uint64_t peakResidentBytes = 0;
  std::uint64_t virtualBytes = 0;       // virtual size (the page file usage)
  // CPU time of the whole process (every thread, user and system), in
  // seconds to the microsecond; never falls from one read to the next.
  double cpuSeconds = 0.0;
};

// Fills `out`; false (and `out` untouched) when the counters can't be read.
// Safe to call from several threads and in a child after fork.
bool readProcessCounters(ProcessCounters& out) noexcept;

}  // namespace tg::host
