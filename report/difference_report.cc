// The difference report: aggregate and detail views of two runs side by side,
// with the comparison memory chart for the "detailedmemory" metric.
#include "analysis/report_data.h"
#include "collect/constants.h"
#include "report/chart_markup.h"
#include "report/comparison_runs.h"
#include "report/document_fragments.h"
#include "report/report_document.h"
#include "report/report_run.h"
#include "report/report_scripts.h"
#include "report/system_info_table.h"
#include "report/tab_divs.h"
#include "tempogauge/report.h"

bool writeDifferenceReport(TempoGauge* store, std::string_view htmlfile, std::string_view grouping,
                           std::string_view lhslabel, std::string_view rhslabel, RawPointVector* lhsRaw,
                           RawPointVector* rhsRaw, const TempoGaugingSystemInfo* lhsInfo,
                           const TempoGaugingSystemInfo* rhsInfo, std::string_view metric) {
  // Both runs are paired before the file is opened.
  const auto start = startComparison(store, grouping, lhsRaw, rhsRaw, metric, true);
  ReportFile file(htmlfile);
  if (!file.isOpen()) return false;
  if (!start.runs) {
    file.writeLines(start.standInPage);
    return file.commit();
  }
  const auto& runs = *start.runs;
  const auto records = comparisonRecords(lhsInfo, rhsInfo, rhsRaw);

  constexpr bool kComparison = true;
  ReportDocument doc(file, metric, kComparison, false, runs.hasDetailedMemStats);
  doc.writeOpening(store, runs.maxDepth, comparisonTitle(grouping));
  doc.write(writeDetailTabDiv(metric, kComparison));
  doc.write(writeAggregateTabDiv());
  doc.write(writeSystemInfoComparison(records.lhs, records.rhs));
  doc.write(kCenterClose);
  doc.writeTabScript();
  doc.writeBodyEnd(false);
  doc.writeLibraryScripts(lhslabel, rhslabel);
  doc.write(writeDiffProcData(runs.processedRows, metric));
  doc.writeAggregateScript();
  doc.writeDetailScript();
  doc.write(kScriptOpen);
  doc.write(writeNameArrays(store));
  doc.write(writeDiffAggData(runs.aggregateRows, metric));
  doc.write(kScriptClose);
  if (metric == tg::kMetricDetailedMemory) {
    doc.write(writeDiffChartMarkup(runs.hasDetailedMemStats));
    std::string chartScript;
    writeDiffChartScript(chartScript, runs.hasDetailedMemStats);
    doc.write(chartScript);
  }
  return file.commit();
}
