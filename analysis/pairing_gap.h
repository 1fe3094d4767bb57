// Synthetic gap phases: a start/stop pair for time between two points at one
// level of the call tree that no phase accounts for.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <utility>

#include "collect/raw_point.h"

// Builds gap pairs and remembers the ids of the gap names it has made, so
// that a long trace asks the phase table once per name.
class GapPairMaker {
 public:
  // The pair for the time between `previous` and `current` while `top` is the
  // open phase. Named "<top>_self" when both points are starts (time in the
  // parent before its child), else "<previous>_post". Without a basic sample
  // on `previous` the pair is a host-language "Unaccounted Phase" of grouping
  // -1 cloned from the two points.
  std::pair<RawPointPtr, RawPointPtr> make(const TGORRERYDataPoint& previous, const TGORRERYDataPoint& current,
                                           const TGORRERYDataPoint& top);

 private:
  std::int32_t gapNameId(std::int32_t phaseId, bool self);
  std::unordered_map<std::int64_t, std::int32_t> nameIds_;
  std::int32_t unaccountedId_ = -1;
};

// A copy of the point with its own class (host class for unknown kinds).
RawPointPtr cloneRawPoint(const TGORRERYDataPoint& point);
