// SPDX-License-Identifier: BSD-3-Clause
// The two clocks of a sample: wall time (monotonic, so differences are
// elapsed times) and the process's CPU time, both in seconds.
#pragma once

double huRealtime() noexcept;
double huCPUtime() noexcept;
