// SPDX-License-Identifier: BSD-3-Clause
// Sums and maxima of all executions of one phase.
#pragma once

#include <cstdint>

#include "tempogauge/analysis/processed_point.h"

class TGAggregateDataPoint {
 public:
  TGAggregateDataPoint(std::int32_t groupingId, std::int32_t phaseId, bool parent);
  virtual ~TGAggregateDataPoint();

  // Adds one execution: totals, maxima, hit count, and self values for a leaf.
  virtual void addPoint(const TGORRERYProcessedDataPoint& point);
  // Adds the point's time and memory deltas to the self values only.
  virtual void addSelfTimes(const TGORRERYProcessedDataPoint& point);

  std::int32_t pointType = 0;
  std::int32_t grouping = -1;
  std::int32_t phaseID = -1;
  double wcTotal = 0.0;
  double wcSelf = 0.0;
  double cpuTotal = 0.0;
  double cpuSelf = 0.0;
  double procMemUsageMax = 0.0;
  double procMemUsageDeltaSelf = 0.0;
  double procMemUsagePeakMax = 0.0;
  double procMemUsagePeakDeltaSelf = 0.0;
  double procVMSizeMax = 0.0;
  double freeMemMax = 0.0;
  double resMemMax = 0.0;
  double commitMemMax = 0.0;
  double dllsMemMax = 0.0;
  double nonprocessMemMax = 0.0;
  std::int32_t hitCount = 0;
  bool isParent = false;  // the first execution seen had children
};
