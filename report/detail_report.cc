// The detail report: aggregate, call tree and detail views of one run, with
// the memory chart for the "detailedmemory" metric.
#include "analysis/aggregate_table.h"
#include "analysis/call_tree.h"
#include "analysis/report_data.h"
#include "collect/constants.h"
#include "report/chart_markup.h"
#include "report/document_fragments.h"
#include "report/report_document.h"
#include "report/report_run.h"
#include "report/report_scripts.h"
#include "report/system_info_table.h"
#include "report/tab_divs.h"
#include "tempogauge/report.h"

bool writeDetailReport(TempoGauge* store, std::string_view htmlfile, std::string_view grouping,
                       std::string_view title, std::string_view metric, bool /*showmeta*/, RawPointVector* raw,
                       const TempoGaugingSystemInfo* systemInfo) {
  ReportFile file(htmlfile);
  if (!file.isOpen()) return false;
  const auto run = startSingleRun(file, store, raw, grouping, metric, systemInfo);
  if (!run) return file.commit();
  const auto aggregates = buildAggregateTable(run->processedPoints);
  const auto callTree = buildCallTree(run->processedPoints);
  collectSystemInfoFirst();

  constexpr bool kComparison = false;
  constexpr bool kAggregateOnly = false;
  ReportDocument doc(file, metric, kComparison, kAggregateOnly, run->hasDetailedMemStats);
  doc.writeOpening(store, run->maxDepth, title);
  doc.write(writeAggregateTabDiv());
  doc.write(writeCallTreeTabDiv());
  doc.write(writeDetailTabDiv(metric, kComparison));
  doc.write(writeSystemInfoTable(&recordOrProcessRecord(systemInfo)));
  doc.write(kCenterClose);
  doc.writeBodyEnd(false);
  doc.writeTabScript();
  doc.writeLibraryScripts("none", "none");
  doc.writeAggregateScript();
  doc.writeDetailScript();
  doc.writeCallTreeScript();
  doc.write(kScriptOpen);
  doc.write(writeCallTree(callTree));
  doc.write(writeProcData(run->processedPoints, metric));
  doc.write(writeNameArrays(store));
  doc.write(writeAggData(aggregates, metric, kAggregateOnly));
  doc.write(kScriptClose);
  if (metric == tg::kMetricDetailedMemory) {
    doc.write(writeMemChartMarkup(run->hasDetailedMemStats));
    std::string chartScript;
    writeMemChartScript(chartScript, run->hasDetailedMemStats);
    doc.write(chartScript);
  }
  return file.commit();
}
