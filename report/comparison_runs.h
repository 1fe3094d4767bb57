// The two runs of a comparison report, paired and aligned.
#pragma once

#include <optional>
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

// A comparison report after pairing: the aligned runs, or, when the report
// ends before its document, the driver's result: false when either run doesn't
// pair up (the file stays empty), true when a "detailedmemory" report lacks
// detailed samples and the page that says so was written instead.
struct ComparisonStart {
  std::optional<ComparisonRuns> runs;
  bool endResult = false;
};
ComparisonStart startComparison(ReportFile& file, TempoGauge* store, std::string_view grouping,
                                RawPointVector* lhsRaw, RawPointVector* rhsRaw, std::string_view metric,
                                bool alignPoints);
