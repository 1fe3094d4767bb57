// SPDX-License-Identifier: BSD-3-Clause
// A plain, direct pairing walk for the tests: index over the vector, gap pairs
// inserted into the middle of it, a hash map from raw point to processed
// point. The product's walk must give identical results on any trace.
#pragma once

#include <algorithm>
#include <string>
#include <unordered_map>
#include <vector>

#include "analysis/pairing.h"
#include "tempogauge/tempogauge.h"

namespace tgtest {

class ReferenceWalk {
 public:
  ReferenceWalk(std::vector<std::string> names, bool byModel, std::int32_t unaccountedID)
      : names_(std::move(names)),
        byModel_(byModel),
        selectAll_(std::find(names_.begin(), names_.end(), "GLOBAL") != names_.end()),
        unaccountedID_(unaccountedID) {}

  bool selected(const TGORRERYDataPoint& p) const {
    const bool unaccounted = unaccountedID_ >= 0 && p.phaseId == unaccountedID_;
    if (byModel_) {
      if (p.pointType == 0) return false;
      const auto* cw = dynamic_cast<const TGCWGENDataPoint*>(&p);
      return listed(tgGetNameStr(tg::kModelKind, cw ? cw->modelId : -1)) || unaccounted || selectAll_;
    }
    return selectAll_ || listed(tgGetNameStr(tg::kGroupingKind, p.groupingId)) || unaccounted;
  }

  // The walk alone; then the processed points of all walked start points in
  // vector order, errors or not, and the map.
  void walkOnly(RawPointVector& v) { walk(v); }
  ProcessedPointVector startPointsInOrder(const RawPointVector& v) const {
    ProcessedPointVector out;
    for (const RawPointPtr& p : v) {
      if (!p || !p->isStart()) continue;
      if (const auto it = map_.find(p.get()); it != map_.end()) out.push_back(it->second);
    }
    return out;
  }
  const std::unordered_map<const TGORRERYDataPoint*, ProcessedPointPtr>& map() const { return map_; }
  const TGProcessedDataStruct& result() const { return result_; }

  // The walk and the building of processedPoints, as analyzeRawPoints does.
  TGProcessedDataStruct analyze(RawPointVector& v) {
    walk(v);
    if (result_.hasErrors) {
      result_.processedPoints.clear();
      return result_;
    }
    if (v.front()) {
      result_.baseWCTime = v.front()->wallTime;
      result_.baseCPUTime = v.front()->cpuTime;
    }
    result_.processedPoints = startPointsInOrder(v);
    return result_;
  }

 private:
  bool listed(const std::string& name) const { return std::find(names_.begin(), names_.end(), name) != names_.end(); }

  void walk(RawPointVector& v) {
    if (v.empty()) {
      result_.hasErrors = true;
      return;
    }
    for (std::size_t i = 0; i < v.size(); ++i) {
      const RawPointPtr p = v[i];
      if (!p || !selected(*p)) continue;
      if (map_.empty()) {
        handleFirstPoint(p);
        epilogue(v[i]);
        continue;
      }
      const double interval = p->wallTime - previous_->wallTime;
      if (interval > 0.10000000149011612 && !(lastWasStart_ && !p->isStart()) && !open_.empty()) {
        auto [gapStart, gapStop] = gapPair(*previous_, *p, *open_.back());
        if (selected(*gapStart)) {
          v.insert(v.begin() + static_cast<std::ptrdiff_t>(i), gapStop);
          v.insert(v.begin() + static_cast<std::ptrdiff_t>(i), gapStart);
          --i;
          epilogue(v[i]);
          continue;
        }
      }
      if (p->isStart())
        handleStart(p);
      else
        handleStop(p);
      epilogue(v[i]);
    }
    result_.topWCTotalCopy = result_.topWCTotal;
    result_.topCPUTotalCopy = result_.topCPUTotal;
    while (!open_.empty()) {
      map_[open_.back().get()]->flags.errorRow = 1;
      result_.hasErrors = true;
      open_.pop_back();
    }
  }

  void epilogue(const RawPointPtr& p) {
    if (!p) return;
    previous_ = p;
    result_.hasDetailedMemStats = p->detailedMemStats && p->detailedMemStats->freeMem != 0.0;
  }

  void addLevel() {
    while (counters_.size() <= static_cast<std::size_t>(depth_)) {
      counters_.push_back(0);
      ++result_.maxDepth;
    }
  }

  std::string number() const {
    std::string s;
    for (std::size_t i = 0; i < std::min<std::size_t>(depth_, counters_.size()); ++i)
      s += (i ? "." : "") + std::to_string(counters_[i]);
    return s;
  }

  // The first selected point: a start opens the walk and sets the base
  // times; a stop is an error whose row number is not used up.
  void handleFirstPoint(const RawPointPtr& p) {
    if (p->isStart()) {
      handleStart(p);
      result_.baseWCTime = p->wallTime;
      result_.baseCPUTime = p->cpuTime;
      return;
    }
    auto pp = makeProcessedPoint(*p, row_, depth_++);
    pp->flags.errorRow = 1;
    result_.hasErrors = true;
    map_[p.get()] = pp;
    lastWasStart_ = false;
  }

  void handleStart(const RawPointPtr& p) {
    if (!open_.empty()) {
      ++map_[open_.back().get()]->numChildren;
      for (const RawPointPtr& o : open_) map_[o.get()]->childrenIDs.push_back(row_);
    }
    addLevel();
    ++counters_[depth_];
    auto pp = makeProcessedPoint(*p, row_++, depth_++);
    if (!open_.empty()) pp->parentPhaseID = open_.back()->phaseId;
    open_.push_back(p);
    pp->HTMLPhaseNumString = number();
    map_[p.get()] = pp;
    lastWasStart_ = true;
  }

  void handleStop(const RawPointPtr& p) {
    if (!open_.empty() && open_.back()->isSameSite(p)) {
      const RawPointPtr t = open_.back();
      const ProcessedPointPtr r = map_[t.get()];
      r->wcStartTime = t->wallTime - result_.baseWCTime;
      r->wcElapsedTime = p->wallTime - t->wallTime;
      r->cpuStartTime = t->cpuTime - result_.baseCPUTime;
      r->cpuElapsedTime = p->cpuTime - t->cpuTime;
      if (p->basicMemStats) {
        r->basicMem = std::make_shared<tg::BasicProcessedMemStats>(p->basicMemStats.get());
        r->basicMem->computeDeltas(t->basicMemStats.get());
        if (p->detailedMemStats) {
          r->detailedMem = std::make_shared<tg::DetailedProcessedMemStats>(p->detailedMemStats.get());
          r->detailedMem->computeDeltas(t->detailedMemStats.get());
          if (r->numChildren > 0 && t->detailedMemStats) {
            r->detailedStartMem = std::make_shared<tg::DetailedMemStats>(*t->detailedMemStats);
            r->detailedStartMem->scaleToMegabytes();
          }
        }
      }
      map_[p.get()] = r;
      open_.pop_back();
      addLevel();
      counters_[depth_] = 0;
      if (depth_ == 1) {
        result_.topWCTotal += r->wcElapsedTime;
        result_.topCPUTotal += r->cpuElapsedTime;
      }
      --depth_;
    } else {
      ProcessedPointPtr r;
      if (!open_.empty()) {
        r = map_[open_.back().get()];
      } else {
        r = makeProcessedPoint(*p, row_++, depth_);
      }
      r->flags.errorRow = 1;
      map_[p.get()] = r;
      result_.hasErrors = true;
    }
    lastWasStart_ = false;
  }

  static RawPointPtr sameKindClone(const TGORRERYDataPoint& p) {
    if (p.pointType == 2) return std::make_shared<TGLoomchartDataPoint>(dynamic_cast<const TGLoomchartDataPoint&>(p));
    if (p.pointType == 1) return std::make_shared<TGCWGENDataPoint>(dynamic_cast<const TGCWGENDataPoint&>(p));
    return std::make_shared<TGORRERYDataPoint>(p);
  }

  static std::pair<RawPointPtr, RawPointPtr> gapPair(const TGORRERYDataPoint& previous,
                                                     const TGORRERYDataPoint& current, const TGORRERYDataPoint& top) {
    RawPointPtr a = sameKindClone(top);
    RawPointPtr b = sameKindClone(top);
    std::string name = previous.isStart() && current.isStart()
                           ? tgGetNameStr(tg::kPhaseKind, top.phaseId) + "_self"
                           : tgGetNameStr(tg::kPhaseKind, previous.phaseId) + "_post";
    if (previous.basicMemStats) {
      a->basicMemStats = std::make_shared<tg::BasicMemStats>(*previous.basicMemStats);
      if (previous.detailedMemStats)
        a->detailedMemStats = std::make_shared<tg::DetailedMemStats>(*previous.detailedMemStats);
      a->wallTime = previous.wallTime;
      a->cpuTime = previous.cpuTime;
      if (current.basicMemStats) b->basicMemStats = std::make_shared<tg::BasicMemStats>(*current.basicMemStats);
      if (current.detailedMemStats)
        b->detailedMemStats = std::make_shared<tg::DetailedMemStats>(*current.detailedMemStats);
      b->wallTime = current.wallTime;
      b->cpuTime = current.cpuTime;
    } else {
      a = std::make_shared<TGORRERYDataPoint>(previous);
      b = std::make_shared<TGORRERYDataPoint>(current);
      a->groupingId = -1;
      b->groupingId = -1;
      name = "Unaccounted Phase";
    }
    a->flags.isStart = 1;
    b->flags.isStart = 0;
    a->flags.isGap = 1;
    b->flags.isGap = 1;
    a->phaseId = b->phaseId = tgGetId(tg::kPhaseKind, name);
    return {a, b};
  }

  std::vector<std::string> names_;
  bool byModel_;
  bool selectAll_;
  std::int32_t unaccountedID_;
  std::unordered_map<const TGORRERYDataPoint*, ProcessedPointPtr> map_;
  std::vector<RawPointPtr> open_;
  std::vector<std::int32_t> counters_;
  std::int32_t row_ = 1;
  std::int32_t depth_ = 0;
  bool lastWasStart_ = false;
  RawPointPtr previous_;
  TGProcessedDataStruct result_;
};

}  // namespace tgtest
