#include "report/comparison_runs.h"

#include <algorithm>

#include "report/report_run.h"

std::optional<ComparisonRuns> pairComparisonRuns(TempoGauge* store, std::string_view grouping,
                                                 RawPointVector* lhsRaw, RawPointVector* rhsRaw) {
  ComparisonRuns runs;
  runs.lhs = analyzeRunForGrouping(store, lhsRaw, grouping);
  if (runs.lhs.hasErrors) return std::nullopt;
  runs.rhs = analyzeRunForGrouping(store, rhsRaw, grouping);
  if (runs.rhs.hasErrors) return std::nullopt;
  runs.hasDetailedMemStats = runs.lhs.hasDetailedMemStats && runs.rhs.hasDetailedMemStats;
  runs.maxDepth = std::max(runs.lhs.maxDepth, runs.rhs.maxDepth);
  return runs;
}

void alignComparisonRuns(ComparisonRuns& runs, bool alignPoints) {
  runs.lhsAggregates = buildAggregateTable(runs.lhs.processedPoints);
  runs.rhsAggregates = buildAggregateTable(runs.rhs.processedPoints);
  if (alignPoints) runs.processedRows = alignProcessedData(runs.lhs.processedPoints, runs.rhs.processedPoints);
  runs.aggregateRows = alignAggregates(runs.lhsAggregates, runs.rhsAggregates);
}
