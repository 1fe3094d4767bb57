// The detail report: aggregate, call tree and detail views of one run, with
// the memory chart for the "detailedmemory" metric.
#include "analysis/aggregate_table.h"
#include "analysis/call_tree.h"
#include "analysis/report_data.h"
#include "collect/constants.h"
#include "report/document_fragments.h"
#include "report/page_head.h"
#include "report/report_run.h"
#include "report/report_scripts.h"
#include "report/system_info_table.h"
#include "report/tab_bars.h"
#include "report/tab_divs.h"
#include "tempogauge/report.h"

bool writeDetailReport(TempoGauge* store, std::string_view htmlfile, std::string_view grouping,
                       std::string_view title, std::string_view metric, bool /*showmeta*/, RawPointVector* raw,
                       const TempoGaugingSystemInfo* systemInfo) {
  ReportFile file(htmlfile);
  if (!file.isOpen()) return false;
  if (systemInfo == nullptr) collectSystemInfoFirst();
  const auto run = analyzeRunForGrouping(store, raw, grouping);
  if (writeSingleRunStandInPage(file, run, metric)) return true;
  const auto aggregates = buildAggregateTable(run.processedPoints);
  const auto callTree = buildCallTree(run.processedPoints);
  collectSystemInfoFirst();

  constexpr bool kComparison = false;
  constexpr bool kAggregateOnly = false;
  const bool detailedMetric = metric == tg::kMetricDetailedMemory;
  file.write(kDoctypeLine);
  file.write(writePageHead(store, run.maxDepth, title, kComparison));
  file.write(detailedMetric && run.hasDetailedMemStats ? kBodyWithDialog : kBodyPlain);
  file.write(kCenterOpen);
  file.write(writeHeaderTable(kComparison, metric, kAggregateOnly));
  file.write(writeAggregateTabDiv());
  file.write(writeCallTreeTabDiv());
  file.write(writeDetailTabDiv(metric, kComparison));
  file.write(writeSystemInfoTable(&recordOrProcessRecord(systemInfo)));
  file.write(kCenterClose);
  file.write(writeScrollDivs(kComparison, false));
  file.write(kBodyClose);
  file.write(kHtmlClose);
  std::string piece;
  writeTabScript(piece, metric, run.hasDetailedMemStats, kComparison, kAggregateOnly);
  file.write(piece);
  piece.clear();
  writeSortScript(piece);
  file.write(piece);
  piece.clear();
  writeCommonScript(piece, metric, kComparison, "none", "none", kAggregateOnly);
  file.write(piece);
  piece.clear();
  writeAggregateScript(piece, metric, kComparison, kAggregateOnly);
  file.write(piece);
  // The detail table's script closes the element that the common script
  // opened; until this report carries it, the element is closed here. The call
  // tree table's script would follow.
  file.write(kScriptClose);
  file.write(kScriptOpen);
  file.write(writeCallTree(callTree));
  file.write(writeProcData(run.processedPoints, metric));
  file.write(writeNameArrays(store));
  file.write(writeAggData(aggregates, metric, kAggregateOnly));
  file.write(kScriptClose);
  // The memory chart's markup and script would follow for "detailedmemory".
  return true;
}
