// SPDX-License-Identifier: BSD-3-Clause
// Deviations of one aligned row of a comparison, per metric: the value pairs
// that the report's deviation columns show, in column order.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "analysis/alignment.h"
#include "analysis/deviation.h"

struct RowDeviations {
  std::array<Deviation, 10> pairs{};
  std::size_t count = 0;  // 4 time, 4 basicmemory, 10 detailedmemory, 0 other words
};

// An absent side counts as 0 in every value.
//  time:           WCSelf, WCSC, CPUSelf, CPUSC (self is 0 for a point with children)
//  basicmemory:    UsageDelta, Usage, UsagePeakDelta, UsagePeak
//  detailedmemory: Free, Reserved, Committed, Dlls, NonProcess, then the same
//                  five at the start (of detailedStartMem for a parent)
RowDeviations compareProcessedRow(const ProcessedComparisonRow& row, std::string_view metric);

//  time:           WCSelf (wcSelf), WCSC (wcTotal)
//  basicmemory:    UsageDelta, Usage, UsagePeakDelta, UsagePeak
//  detailedmemory: Free, Reserved, Committed, Dlls, NonProcess (maxima)
RowDeviations compareAggregateRow(const AggregateComparisonRow& row, std::string_view metric);

// Hit-count deviation: |RHS| - |LHS| truncated to an integer, or the present
// side's count (positive whichever side it is).
std::int32_t countAbsDev(const AggregateComparisonRow& row);
