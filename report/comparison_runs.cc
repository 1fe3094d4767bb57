#include "report/comparison_runs.h"

#include <algorithm>

#include "collect/constants.h"
#include "report/document_fragments.h"
#include "report/report_run.h"

namespace {

// Pairs both runs; empty when either has a pairing error.
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

// Builds the aggregate tables and aligns the aggregates, and the processed
// points too when the report shows them.
void alignComparisonRuns(ComparisonRuns& runs, bool alignPoints) {
  runs.lhsAggregates = buildAggregateTable(runs.lhs.processedPoints);
  runs.rhsAggregates = buildAggregateTable(runs.rhs.processedPoints);
  if (alignPoints) runs.processedRows = alignProcessedData(runs.lhs.processedPoints, runs.rhs.processedPoints);
  runs.aggregateRows = alignAggregates(runs.lhsAggregates, runs.rhsAggregates);
}

}  // namespace

ComparisonStart startComparison(TempoGauge* store, std::string_view grouping, RawPointVector* lhsRaw,
                                RawPointVector* rhsRaw, std::string_view metric, bool alignPoints) {
  ComparisonStart start;
  start.runs = pairComparisonRuns(store, grouping, lhsRaw, rhsRaw);
  if (!start.runs) {
    start.standInPage = kErrorPageLines;
    return start;
  }
  if (metric == tg::kMetricDetailedMemory && !start.runs->hasDetailedMemStats) {
    start.standInPage = kComparisonMissingDetailPageLines;
    start.runs.reset();
    return start;
  }
  alignComparisonRuns(*start.runs, alignPoints);
  return start;
}
