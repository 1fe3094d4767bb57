// SPDX-License-Identifier: BSD-3-Clause
// Synthetic gap phases: a start/stop pair for time between two points at one
// level of the call tree that no phase accounts for.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>

#include "collect/raw_point.h"

// Builds gap pairs and remembers the ids of the gap names, so that a long
// trace asks the phase table once per name. A name is added to the phase
// table only when its pair is kept: a pair that the walk drops leaves no
// name behind, so that pairing the same trace again gives the same rows.
class GapPairMaker {
 public:
  // The pair for the time between `previous` and `current` while `top` is the
  // open phase. Named "<top>_self" when both points are starts (time in the
  // parent before its child), else "<previous>_post". Without a basic sample
  // on `previous` the pair is a host-language "Unaccounted Phase" of grouping
  // -1 cloned from the two points. A name that the phase table doesn't hold
  // yet leaves the pair's phase id at -1 until keep() is called.
  std::pair<RawPointPtr, RawPointPtr> make(const TGORRERYDataPoint& previous, const TGORRERYDataPoint& current,
                                           const TGORRERYDataPoint& top);

  // Gives the pair made last its phase id, adding its name to the phase
  // table when it is new. Only for a pair that goes into the walk.
  void keep(TGORRERYDataPoint& start, TGORRERYDataPoint& stop);

 private:
  std::unordered_map<std::int64_t, std::int32_t> nameIds_;  // only names the table holds
  std::int64_t lastKey_ = 0;
  std::string lastName_;
};

// A copy of the point with its own class (host class for unknown kinds).
RawPointPtr cloneRawPoint(const TGORRERYDataPoint& point);
