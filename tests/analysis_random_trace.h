// SPDX-License-Identifier: BSD-3-Clause
// Random raw traces for the comparison of the pairing walk with the plain one:
// random nesting of all three point kinds over several groupings and models,
// intervals around the gap threshold, missing samples, wrong and missing
// stops, and now and then a clock that goes back.
#pragma once

#include <cmath>
#include <random>
#include <vector>

#include "analysis_trace_builder.h"

namespace tgtest {

inline RawPointVector randomTrace(std::mt19937& rng, int length) {
  const double threshold = 0.10000000149011612;
  const std::vector<double> intervals{0.0,  0.01, 0.05, 0.0999999, 0.1, threshold, std::nextafter(threshold, 1.0),
                                      0.1000001, 0.15, 0.3};
  auto pick = [&rng](std::size_t n) { return std::uniform_int_distribution<std::size_t>(0, n - 1)(rng); };
  auto chance = [&rng](double p) { return std::uniform_real_distribution<double>(0.0, 1.0)(rng) < p; };
  auto randomSite = [&] {
    static const std::vector<std::string> groupings{"X", "Y", "Z"}, phases{"P0", "P1", "P2", "P3", "P0_self"},
        models{"M1", "M2"}, targets{"T1", "T2"};
    return PointSite(static_cast<int>(pick(3)), groupings[pick(3)], phases[pick(5)], models[pick(2)],
                     targets[pick(2)], "Mach", "Chart");
  };
  RawPointVector trace;
  std::vector<PointSite> open;
  double now = 0.0;
  double cpu = 0.0;
  auto emit = [&](const PointSite& site, bool start) {
    now += intervals[pick(intervals.size())];
    if (chance(0.02)) now -= 0.3;
    cpu += std::uniform_real_distribution<double>(0.0, 0.1)(rng);
    RawPointPtr p = makeRawPoint(site, start, now, cpu);
    if (chance(0.1)) {
      p->basicMemStats.reset();
    } else {
      *p->basicMemStats = tg::BasicMemStats(pick(1000) * 4096.0, pick(1000) * 4096.0, pick(1000) * 65536.0);
    }
    if (chance(0.1)) {
      p->detailedMemStats.reset();
    } else if (chance(0.7)) {
      *p->detailedMemStats = tg::DetailedMemStats(pick(3) * 1e6, pick(9) * 1e6, 2e6, 3e6, pick(5) * 1e5);
    }
    trace.push_back(std::move(p));
  };
  for (int k = 0; k < length; ++k) {
    if (open.empty() || (open.size() < 5 && chance(0.55))) {
      open.push_back(randomSite());
      emit(open.back(), true);
    } else if (chance(0.02)) {
      emit(randomSite(), false);  // a stop that matches nothing, most likely
    } else if (chance(0.02)) {
      open.pop_back();  // a stop that never comes
    } else {
      emit(open.back(), false);
      open.pop_back();
    }
  }
  while (!open.empty() && !chance(0.05)) {
    emit(open.back(), false);
    open.pop_back();
  }
  return trace;
}

}  // namespace tgtest
