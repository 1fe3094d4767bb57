// SPDX-License-Identifier: BSD-3-Clause
#include "host/clock.h"

#include <ctime>

namespace {

double secondsOf(clockid_t clock) noexcept {
  timespec now{};
  if (clock_gettime(clock, &now) != 0) return 0.0;
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

}  // namespace

double huRealtime() noexcept { return secondsOf(CLOCK_MONOTONIC); }

double huCPUtime() noexcept { return secondsOf(CLOCK_PROCESS_CPUTIME_ID); }
