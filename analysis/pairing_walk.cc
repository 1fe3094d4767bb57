// SPDX-License-Identifier: BSD-3-Clause
// The pairing walk. It reads the raw vector once, front to back, and writes a
// new vector with the gap pairs in place: a gap pair goes on a small stack of
// pending points that are walked before the input continues, exactly as if it
// had been inserted before the current point and the walk had stepped back.
// Inserting into the middle of the vector instead would make long traces
// quadratic.
#include <utility>

#include "analysis/pairing.h"
#include "analysis/pairing_gap.h"

namespace {

class PairingWalk {
 public:
  PairingWalk(const PairingWalkSettings& settings, TGProcessedDataStruct& result)
      : settings_(settings), result_(result) {}

  bool run(RawPointVector& raw);

 private:
  struct OpenPhase {
    RawPointPtr raw;
    ProcessedPointPtr processed;
  };

  void visit(RawPointPtr point);
  void handleFirstPoint(const RawPointPtr& point);
  void handleStart(const RawPointPtr& point);
  void handleStop(const RawPointPtr& point);
  ProcessedPointPtr newProcessedPoint(const TGORRERYDataPoint& point);
  void growLevelCounters();
  void epilogue(const RawPointPtr& point);
  void record(const RawPointPtr& point, const ProcessedPointPtr& processed) {
    if (settings_.rawToProcessed) (*settings_.rawToProcessed)[point.get()] = processed;
  }

  const PairingWalkSettings& settings_;
  TGProcessedDataStruct& result_;
  GapPairMaker gaps_;
  RawPointVector out_;               // the walked vector, gap pairs included
  std::vector<RawPointPtr> pending_; // points to walk before the next input point (top = next)
  std::vector<OpenPhase> openPhases_;
  std::vector<std::int32_t> levelCounters_;
  std::int32_t rowCounter_ = 1;
  std::int32_t depth_ = 0;
  bool lastWasStart_ = false;
  bool started_ = false;
  RawPointPtr previousPoint_;
};

bool PairingWalk::run(RawPointVector& raw) {
  if (raw.empty()) {
    result_.hasErrors = true;
    return true;
  }
  out_.reserve(raw.size() + raw.size() / 2);
  std::size_t next = 0;
  for (;;) {
    RawPointPtr point;
    if (!pending_.empty()) {
      point = std::move(pending_.back());
      pending_.pop_back();
    } else if (next < raw.size()) {
      point = raw[next++];  // copied: the caller's vector stays whole if the walk throws
    } else {
      break;
    }
    visit(std::move(point));
  }
  raw.swap(out_);

  result_.topWCTotalCopy = result_.topWCTotal;
  result_.topCPUTotalCopy = result_.topCPUTotal;
  const bool leftOpen = !openPhases_.empty();
  for (; !openPhases_.empty(); openPhases_.pop_back()) {
    openPhases_.back().processed->flags.errorRow = 1;
    if (settings_.openAtEndIsError) result_.hasErrors = true;
  }
  return leftOpen;
}

void PairingWalk::visit(RawPointPtr point) {
  if (!point || !settings_.isSelected(*point)) {
    out_.push_back(std::move(point));
    return;
  }
  if (!started_) {
    started_ = true;
    handleFirstPoint(point);
  } else {
    const double interval = point->wallTime - previousPoint_->wallTime;
    const bool leafEnds = lastWasStart_ && !point->isStart();
    if (interval > kGapThreshold && !leafEnds && !openPhases_.empty()) {
      auto [gapStart, gapStop] = gaps_.make(*previousPoint_, *point, *openPhases_.back().raw);
      // A pair that this walk would not select would be skipped and the point
      // met again with the same interval, without end: such a pair is not
      // inserted, and the point is handled as usual.
      if (settings_.isSelected(*gapStart)) {
        gaps_.keep(*gapStart, *gapStop);
        pending_.push_back(std::move(point));
        pending_.push_back(std::move(gapStop));
        pending_.push_back(std::move(gapStart));
        // Stepping back: the point before the pair becomes the previous one.
        epilogue(out_.back());
        return;
      }
    }
    if (point->isStart())
      handleStart(point);
    else
      handleStop(point);
  }
  epilogue(point);
  out_.push_back(std::move(point));
}

void PairingWalk::epilogue(const RawPointPtr& point) {
  if (!point) return;
  previousPoint_ = point;
  result_.hasDetailedMemStats = point->detailedMemStats && point->detailedMemStats->freeMem != 0.0;
}

ProcessedPointPtr PairingWalk::newProcessedPoint(const TGORRERYDataPoint& point) {
  return makeProcessedPoint(point, rowCounter_, depth_);
}

void PairingWalk::growLevelCounters() {
  // Normally one entry is missing at most; after a stray first stop the depth
  // runs one ahead of the counters.
  while (levelCounters_.size() <= static_cast<std::size_t>(depth_)) {
    levelCounters_.push_back(0);
    ++result_.maxDepth;
  }
}

void PairingWalk::handleFirstPoint(const RawPointPtr& point) {
  ProcessedPointPtr processed = newProcessedPoint(*point);
  if (point->isStart()) {
    growLevelCounters();
    ++levelCounters_[depth_];
    ++rowCounter_;
    ++depth_;
    processed->HTMLPhaseNumString = makeHTMLPhaseNumString(levelCounters_, depth_);
    openPhases_.push_back({point, processed});
    result_.processedPoints.push_back(processed);
    result_.baseWCTime = point->wallTime;
    result_.baseCPUTime = point->cpuTime;
    lastWasStart_ = true;
  } else {
    // A stray stop: the row number is not used up, and the depth stays one too
    // high for the rest of the walk.
    ++depth_;
    processed->flags.errorRow = 1;
    result_.hasErrors = true;
    lastWasStart_ = false;
  }
  record(point, processed);
}

void PairingWalk::handleStart(const RawPointPtr& point) {
  if (!openPhases_.empty()) {
    ++openPhases_.back().processed->numChildren;
    for (const OpenPhase& open : openPhases_) open.processed->childrenIDs.push_back(rowCounter_);
  }
  growLevelCounters();
  ++levelCounters_[depth_];
  ProcessedPointPtr processed = newProcessedPoint(*point);
  ++rowCounter_;
  ++depth_;
  if (!openPhases_.empty()) processed->parentPhaseID = openPhases_.back().raw->phaseId;
  openPhases_.push_back({point, processed});
  processed->HTMLPhaseNumString = makeHTMLPhaseNumString(levelCounters_, depth_);
  result_.processedPoints.push_back(processed);
  record(point, processed);
  lastWasStart_ = true;
}

void PairingWalk::handleStop(const RawPointPtr& point) {
  if (!openPhases_.empty() && openPhases_.back().raw->isSameSite(point)) {
    const TGORRERYDataPoint& start = *openPhases_.back().raw;
    TGORRERYProcessedDataPoint& r = *openPhases_.back().processed;
    r.wcStartTime = start.wallTime - result_.baseWCTime;
    r.wcElapsedTime = point->wallTime - start.wallTime;
    r.cpuStartTime = start.cpuTime - result_.baseCPUTime;
    r.cpuElapsedTime = point->cpuTime - start.cpuTime;
    // The records made at the start are the point's own: they are refilled in
    // place rather than replaced.
    if (point->basicMemStats) {
      *r.basicMem = tg::BasicProcessedMemStats(point->basicMemStats.get());
      r.basicMem->computeDeltas(start.basicMemStats.get());
      if (point->detailedMemStats) {
        *r.detailedMem = tg::DetailedProcessedMemStats(point->detailedMemStats.get());
        r.detailedMem->computeDeltas(start.detailedMemStats.get());
        if (r.numChildren > 0 && start.detailedMemStats) {
          r.detailedStartMem = std::make_shared<tg::DetailedMemStats>(*start.detailedMemStats);
          r.detailedStartMem->scaleToMegabytes();
        }
      }
    }
    record(point, openPhases_.back().processed);
    openPhases_.pop_back();
    growLevelCounters();
    levelCounters_[depth_] = 0;  // the numbering of this phase's children ends with it
    if (depth_ == 1) {
      result_.topWCTotal += r.wcElapsedTime;
      result_.topCPUTotal += r.cpuElapsedTime;
    }
    --depth_;
  } else {
    ProcessedPointPtr culprit;
    if (!openPhases_.empty()) {
      culprit = openPhases_.back().processed;  // the open phase stays open
    } else {
      culprit = newProcessedPoint(*point);
      ++rowCounter_;
    }
    culprit->flags.errorRow = 1;
    record(point, culprit);
    result_.hasErrors = true;
  }
  lastWasStart_ = false;
}

}  // namespace

bool walkRawPoints(RawPointVector& raw, const PairingWalkSettings& settings, TGProcessedDataStruct& result) {
  PairingWalk walk(settings, result);
  return walk.run(raw);
}
