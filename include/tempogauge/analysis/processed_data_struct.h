// SPDX-License-Identifier: BSD-3-Clause
// The result of pairing: the processed points in start order and the run's
// totals.
#pragma once

#include <cstdint>

#include "tempogauge/analysis/processed_point.h"

struct TGProcessedDataStruct {
  // One per start point, in raw order (gap rows in place); empty when hasErrors.
  ProcessedPointVector processedPoints;
  double topCPUTotalCopy = 0.0;  // copies of the totals, taken when the walk ends
  double topWCTotal = 0.0;       // sum of the wall times of the top-level phases
  double topCPUTotal = 0.0;      // sum of their CPU times
  double topWCTotalCopy = 0.0;
  std::int32_t maxDepth = 0;     // levels of the numbering table
  double baseWCTime = 0.0;       // times of the first raw point of the vector
  double baseCPUTime = 0.0;
  bool hasErrors = false;        // a start/stop mismatch, or nothing to analyse
  bool hasDetailedMemStats = false;  // the last walked point had a detailed sample with free memory
};
