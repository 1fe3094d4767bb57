// SPDX-License-Identifier: BSD-3-Clause
// Alignment of two runs, row by row: processed points by their comparison key,
// aggregates by their cleaned phase name. A phase that exists in one run only
// costs one row and doesn't shift the rest.
#pragma once

#include <cstdint>
#include <vector>

#include "analysis/aggregate_table.h"
#include "analysis/processed_point.h"

// One row of an aligned list. side: 0 both present, 1 only lhs, 2 only rhs;
// the absent side is null.
template <class Element>
struct comparisonRow {
  Element lhs{};
  Element rhs{};
  std::int32_t side = 0;
};

using ProcessedComparisonRow = comparisonRow<ProcessedPointPtr>;
using AggregateComparisonRow = comparisonRow<const TGAggregateDataPoint*>;

// Keys are comparisonKey() of each point; the phase number plays no part, so a
// phase that moved in the tree still matches.
std::vector<ProcessedComparisonRow> alignProcessedData(const ProcessedPointVector& lhsPoints,
                                                       const ProcessedPointVector& rhsPoints);

// Keys are the phase names cleaned with their customization parts stripped;
// each table is read in its own container order.
std::vector<AggregateComparisonRow> alignAggregates(const AggregateTable& lhsTable, const AggregateTable& rhsTable);
