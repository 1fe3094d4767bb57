// The two runs of a comparison report, paired and aligned.
#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "analysis/aggregate_table.h"
#include "analysis/alignment.h"
#include "analysis/processed_data_struct.h"
#include "collect/raw_point.h"
#include "report/report_file.h"

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

// A comparison report after pairing, before anything is written: the aligned
// runs, or the page that stands in for the report: the error page when either
// run doesn't pair up (as for a single run), or the page that says a
// "detailedmemory" report lacks detailed samples.
struct ComparisonStart {
  std::optional<ComparisonRuns> runs;
  std::span<const std::string_view> standInPage;
};
ComparisonStart startComparison(TempoGauge* store, std::string_view grouping, RawPointVector* lhsRaw,
                                RawPointVector* rhsRaw, std::string_view metric, bool alignPoints);
