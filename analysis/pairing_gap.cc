// SPDX-License-Identifier: BSD-3-Clause
#include "analysis/pairing_gap.h"

#include <limits>
#include <string>

#include "collect/constants.h"
#include "collect/tempo_gauge.h"

namespace {

// The cache key of "Unaccounted Phase"; the others are (phase id << 1) | self.
constexpr std::int64_t kUnaccountedKey = std::numeric_limits<std::int64_t>::min();

std::int32_t knownPhaseId(const std::string& name) {
  return TempoGauge::instance()->findId(tg::kPhaseKind, name);
}

template <class Stats>
void assign(std::shared_ptr<Stats>& target, const Stats& value) {
  if (target)
    *target = value;
  else
    target = std::make_shared<Stats>(value);
}

}  // namespace

RawPointPtr cloneRawPoint(const TGORRERYDataPoint& point) {
  if (point.pointType == 2) {
    if (const auto* lc = dynamic_cast<const TGLoomchartDataPoint*>(&point))
      return std::make_shared<TGLoomchartDataPoint>(*lc);
  }
  if (point.pointType == 1 || point.pointType == 2) {
    if (const auto* cw = dynamic_cast<const TGCWGENDataPoint*>(&point))
      return std::make_shared<TGCWGENDataPoint>(*cw);
  }
  return std::make_shared<TGORRERYDataPoint>(point);
}

std::pair<RawPointPtr, RawPointPtr> GapPairMaker::make(const TGORRERYDataPoint& previous,
                                                       const TGORRERYDataPoint& current,
                                                       const TGORRERYDataPoint& top) {
  RawPointPtr start;
  RawPointPtr stop;
  if (previous.basicMemStats) {
    start = cloneRawPoint(top);
    stop = cloneRawPoint(top);
    const bool self = previous.isStart() && current.isStart();
    const std::int32_t namedAfter = self ? top.phaseId : previous.phaseId;
    lastKey_ = (static_cast<std::int64_t>(namedAfter) << 1) | (self ? 1 : 0);
    if (!nameIds_.contains(lastKey_)) lastName_ = tgGetNameStr(tg::kPhaseKind, namedAfter) + (self ? "_self" : "_post");
    // The clones own their records: copy the samples into them.
    assign(start->basicMemStats, *previous.basicMemStats);
    if (previous.detailedMemStats) assign(start->detailedMemStats, *previous.detailedMemStats);
    start->wallTime = previous.wallTime;
    start->cpuTime = previous.cpuTime;
    if (current.basicMemStats) assign(stop->basicMemStats, *current.basicMemStats);
    if (current.detailedMemStats) assign(stop->detailedMemStats, *current.detailedMemStats);
    stop->wallTime = current.wallTime;
    stop->cpuTime = current.cpuTime;
  } else {
    // Nothing to lean on: host-language copies of the two points themselves.
    start = std::make_shared<TGORRERYDataPoint>(previous);
    stop = std::make_shared<TGORRERYDataPoint>(current);
    start->groupingId = -1;
    stop->groupingId = -1;
    lastKey_ = kUnaccountedKey;
    if (!nameIds_.contains(lastKey_)) lastName_ = tg::kUnaccountedPhase;
  }
  std::int32_t nameId = -1;
  if (const auto it = nameIds_.find(lastKey_); it != nameIds_.end()) {
    nameId = it->second;
  } else if ((nameId = knownPhaseId(lastName_)) >= 0) {
    nameIds_.emplace(lastKey_, nameId);
  }
  start->flags.isStart = 1;
  stop->flags.isStart = 0;
  start->flags.isGap = 1;
  stop->flags.isGap = 1;
  start->phaseId = nameId;
  stop->phaseId = nameId;
  return {std::move(start), std::move(stop)};
}

void GapPairMaker::keep(TGORRERYDataPoint& start, TGORRERYDataPoint& stop) {
  if (start.phaseId >= 0) return;
  const std::int32_t id = tgGetId(tg::kPhaseKind, lastName_);
  nameIds_.emplace(lastKey_, id);
  start.phaseId = id;
  stop.phaseId = id;
}
