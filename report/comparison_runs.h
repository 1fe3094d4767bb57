// The two runs of a comparison report, paired and aligned.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "analysis/aggregate_table.h"
#include "analysis/alignment.h"
#include "analysis/processed_data_struct.h"
#include "collect/raw_point.h"

class TempoGauge;

struct ComparisonRuns {
  TGProcessedDataStruct lhs;
  TGProcessedDataStruct rhs;
  AggregateTable lhsAggregates;
  AggregateTable rhsAggregates;
  std::vector<ProcessedComparisonRow> processedRows;
  std::vector<AggregateComparisonRow> aggregateRows;
  bool hasDetailedMemStats = false;  // both runs have detailed samples
  std::int32_t maxDepth = 0;         // the deeper of the two call trees
};

// Pairs both runs; empty when either has a pairing error.
std::optional<ComparisonRuns> pairComparisonRuns(TempoGauge* store, std::string_view grouping,
                                                 RawPointVector* lhsRaw, RawPointVector* rhsRaw);
// Builds the aggregate tables and aligns the aggregates, and the processed
// points too when the report shows them.
void alignComparisonRuns(ComparisonRuns& runs, bool alignPoints);
