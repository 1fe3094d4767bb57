// The difference report: aggregate and detail views of two runs side by side,
// with the comparison memory chart for the "detailedmemory" metric.
#include "analysis/report_data.h"
#include "report/comparison_runs.h"
#include "collect/constants.h"
#include "report/document_fragments.h"
#include "report/page_head.h"
#include "report/report_run.h"
#include "report/report_scripts.h"
#include "report/system_info_table.h"
#include "report/tab_bars.h"
#include "report/tab_divs.h"
#include "tempogauge/report.h"

bool writeDifferenceReport(TempoGauge* store, std::string_view htmlfile, std::string_view grouping,
                           std::string_view lhslabel, std::string_view rhslabel, RawPointVector* lhsRaw,
                           RawPointVector* rhsRaw, const TempoGaugingSystemInfo* lhsInfo,
                           const TempoGaugingSystemInfo* rhsInfo, std::string_view metric) {
  ReportFile file(htmlfile);
  if (!file.isOpen()) return false;
  const auto title = comparisonTitle(grouping);
  auto runs = pairComparisonRuns(store, grouping, lhsRaw, rhsRaw);
  if (!runs) return false;
  const bool detailedMetric = metric == tg::kMetricDetailedMemory;
  if (detailedMetric && !runs->hasDetailedMemStats) {
    file.writeLines(kComparisonMissingDetailPageLines);
    return true;
  }
  alignComparisonRuns(*runs, true);
  const auto records = comparisonRecords(lhsInfo, rhsInfo, rhsRaw);

  constexpr bool kComparison = true;
  constexpr bool kAggregateOnly = false;
  file.write(kDoctypeLine);
  file.write(writePageHead(store, runs->maxDepth, title, kComparison));
  file.write(detailedMetric && runs->hasDetailedMemStats ? kBodyWithDialog : kBodyPlain);
  file.write(kCenterOpen);
  file.write(writeHeaderTable(kComparison, metric, kAggregateOnly));
  file.write(writeDetailTabDiv(metric, kComparison));
  file.write(writeAggregateTabDiv());
  file.write(writeSystemInfoComparison(records.lhs, records.rhs));
  file.write(kCenterClose);
  std::string piece;
  writeTabScript(piece, metric, runs->hasDetailedMemStats, kComparison, kAggregateOnly);
  file.write(piece);
  file.write(writeScrollDivs(kComparison, false));
  file.write(kBodyClose);
  file.write(kHtmlClose);
  piece.clear();
  writeSortScript(piece);
  file.write(piece);
  piece.clear();
  writeCommonScript(piece, metric, kComparison, lhslabel, rhslabel, kAggregateOnly);
  file.write(piece);
  file.write(writeDiffProcData(runs->processedRows, metric));
  piece.clear();
  writeAggregateScript(piece, metric, kComparison, kAggregateOnly);
  file.write(piece);
  // The detail table's script closes the element that the common script
  // opened; until this report carries it, the element is closed here.
  file.write(kScriptClose);
  file.write(kScriptOpen);
  file.write(writeNameArrays(store));
  file.write(writeDiffAggData(runs->aggregateRows, metric));
  file.write(kScriptClose);
  // The comparison memory chart's markup and script would follow for
  // "detailedmemory".
  return true;
}
