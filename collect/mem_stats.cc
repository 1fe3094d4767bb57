// SPDX-License-Identifier: BSD-3-Clause
#include "collect/mem_stats.h"

#include "collect/constants.h"

namespace tg {

BaseMemStats::~BaseMemStats() = default;
BasicMemStats::~BasicMemStats() = default;
DetailedMemStats::~DetailedMemStats() = default;

void DetailedMemStats::scaleToMegabytes() {
  commitMem *= kBytesToMegabytes;
  resMem *= kBytesToMegabytes;
  freeMem *= kBytesToMegabytes;
  dllsMem *= kBytesToMegabytes;
  nonprocessMem *= kBytesToMegabytes;
}

}  // namespace tg
