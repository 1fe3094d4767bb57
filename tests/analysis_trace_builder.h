// SPDX-License-Identifier: BSD-3-Clause
// Builds raw traces for the analysis tests and benchmarks: points of the three
// kinds with names interned in the store, and a clock that the caller moves.
#pragma once

#include <memory>
#include <sstream>
#include <string>

#include "analysis/pairing.h"
#include "analysis/pairing_gap.h"
#include "tempogauge/tempogauge.h"

namespace tgtest {

struct PointSite {
  PointSite() = default;
  PointSite(int k, std::string g, std::string p, std::string m = {}, std::string t = {}, std::string mach = {},
            std::string c = {})
      : kind(k), grouping(std::move(g)), phase(std::move(p)), model(std::move(m)), target(std::move(t)),
        machine(std::move(mach)), chart(std::move(c)) {}

  int kind = 0;  // 0 host, 1 Cogwheel, 2 Loomchart
  std::string grouping = "G";
  std::string phase = "A";
  std::string model;
  std::string target;
  std::string machine;
  std::string chart;
};

inline RawPointPtr makeRawPoint(const PointSite& site, bool start, double wall, double cpu) {
  RawPointPtr p;
  if (site.kind == 2) {
    auto lc = std::make_shared<TGLoomchartDataPoint>();
    lc->machineId = tgGetId(tg::kMachineKind, site.machine);
    lc->chartId = tgGetId(tg::kChartKind, site.chart);
    p = lc;
  } else if (site.kind == 1) {
    p = std::make_shared<TGCWGENDataPoint>();
  } else {
    p = std::make_shared<TGORRERYDataPoint>();
  }
  if (auto* cw = dynamic_cast<TGCWGENDataPoint*>(p.get())) {
    cw->modelId = tgGetId(tg::kModelKind, site.model);
    cw->targetId = tgGetId(tg::kTargetKind, site.target);
  }
  p->groupingId = tgGetId(tg::kGroupingKind, site.grouping);
  p->phaseId = tgGetId(tg::kPhaseKind, site.phase);
  p->flags.isStart = start ? 1 : 0;
  p->wallTime = wall;
  p->cpuTime = cpu;
  return p;
}

// A copy of each point (null stays null), for walks that insert gap points
// into the vector that they walk.
inline RawPointVector deepCopy(const RawPointVector& v) {
  RawPointVector out;
  out.reserve(v.size());
  for (const auto& p : v) out.push_back(p ? cloneRawPoint(*p) : nullptr);
  return out;
}

// Appends points with a running clock: start/stop move the clock first.
class TraceBuilder {
 public:
  TraceBuilder& start(const std::string& phase, double after = 0.0) { return add(site(phase), true, after); }
  TraceBuilder& stop(const std::string& phase, double after = 0.0) { return add(site(phase), false, after); }
  TraceBuilder& add(const PointSite& s, bool isStart, double after) {
    now += after;
    points.push_back(makeRawPoint(s, isStart, now, now / 2));
    return *this;
  }
  PointSite site(const std::string& phase) const {
    PointSite s = defaults;
    s.phase = phase;
    return s;
  }

  PointSite defaults;
  double now = 0.0;
  RawPointVector points;
};

// A pairing result as text for golden comparisons: the totals, then one line
// per processed point with its number, name, place, times and flags.
inline std::string rowsText(const TGProcessedDataStruct& r) {
  std::ostringstream out;
  const auto name = [](tg::NameKind kind, std::int32_t id) {
    return id < 0 ? std::string("-") : tgGetNameStr(kind, id);
  };
  out << "errors " << r.hasErrors << ", detailed " << r.hasDetailedMemStats << ", depth " << r.maxDepth
      << ", top " << r.topWCTotal << "/" << r.topCPUTotal << " (copies " << r.topWCTotalCopy << "/"
      << r.topCPUTotalCopy << "), base " << r.baseWCTime << "/" << r.baseCPUTime << "\n";
  for (const auto& p : r.processedPoints) {
    out << p->HTMLPhaseNumString << " " << name(tg::kPhaseKind, p->phaseID) << ": row " << p->HTMLRowNumber
        << ", kind " << p->pointType << ", grouping " << name(tg::kGroupingKind, p->grouping) << ", depth "
        << p->stackDepth << ", parent " << name(tg::kPhaseKind, p->parentPhaseID) << ", start " << p->wcStartTime
        << ", wc " << p->wcElapsedTime << ", cpu " << p->cpuElapsedTime << ", kids " << p->numChildren << " [";
    for (std::size_t i = 0; i < p->childrenIDs.size(); ++i) out << (i ? " " : "") << p->childrenIDs[i];
    out << "]" << (p->isGapRow() ? " gap" : "") << (p->isErrorRow() ? " error" : "") << "\n";
  }
  return out.str();
}

}  // namespace tgtest
