// SPDX-License-Identifier: BSD-3-Clause
// Traces for the export tests: nested phases with gaps between them, a name
// with quotes and line ends, memory samples on every point; and one whose
// inner phase never stops.
#pragma once

#include <memory>
#include <string>

#include "analysis_trace_builder.h"

namespace tgtest {

inline const std::string kOddName = "read \"A\"\nthen\r B\t</script>";

// solve 0..2.0 s holds factorize 0.3..1.8 s, which holds the odd name
// 0.3..0.8 s; report runs 2.0..2.4 s. Memory grows by 1 MiB per point.
inline RawPointVector nestedTrace() {
  TraceBuilder t;
  t.start("solve").start("factorize", 0.3).start(kOddName).stop(kOddName, 0.5).stop("factorize", 1.0);
  t.stop("solve", 0.2).start("report").stop("report", 0.4);
  double mebibytes = 10;
  for (auto& p : t.points) {
    mebibytes += 1;
    p->basicMemStats = std::make_shared<tg::BasicMemStats>(mebibytes * 1048576, (mebibytes + 5) * 1048576,
                                                           2 * mebibytes * 1048576);
  }
  return t.points;
}

inline RawPointVector unpairedTrace() {
  TraceBuilder t;
  t.start("solve").start("never stops", 0.1).stop("solve", 0.1);
  return t.points;
}

}  // namespace tgtest
