#include "analysis/pairing_gap.h"

#include <string>

#include "collect/constants.h"
#include "collect/tempo_gauge.h"

namespace {

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

std::int32_t GapPairMaker::gapNameId(std::int32_t phaseId, bool self) {
  const std::int64_t key = (static_cast<std::int64_t>(phaseId) << 1) | (self ? 1 : 0);
  if (const auto it = nameIds_.find(key); it != nameIds_.end()) return it->second;
  const std::string name = tgGetNameStr(tg::kPhaseKind, phaseId) + (self ? "_self" : "_post");
  const std::int32_t id = tgGetId(tg::kPhaseKind, name);
  nameIds_.emplace(key, id);
  return id;
}

std::pair<RawPointPtr, RawPointPtr> GapPairMaker::make(const TGORRERYDataPoint& previous,
                                                       const TGORRERYDataPoint& current,
                                                       const TGORRERYDataPoint& top) {
  RawPointPtr start;
  RawPointPtr stop;
  std::int32_t nameId = -1;
  if (previous.basicMemStats) {
    start = cloneRawPoint(top);
    stop = cloneRawPoint(top);
    const bool self = previous.isStart() && current.isStart();
    nameId = gapNameId(self ? top.phaseId : previous.phaseId, self);
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
    if (unaccountedId_ < 0) unaccountedId_ = tgGetId(tg::kPhaseKind, tg::kUnaccountedPhase);
    nameId = unaccountedId_;
  }
  start->flags.isStart = 1;
  stop->flags.isStart = 0;
  start->flags.isGap = 1;
  stop->flags.isGap = 1;
  start->phaseId = nameId;
  stop->phaseId = nameId;
  return {std::move(start), std::move(stop)};
}
