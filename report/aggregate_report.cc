// The aggregate report: the aggregate view of one run and its system
// information, nothing else.
#include "analysis/aggregate_table.h"
#include "analysis/report_data.h"
#include "report/document_fragments.h"
#include "report/report_document.h"
#include "report/report_run.h"
#include "report/system_info_table.h"
#include "report/tab_divs.h"
#include "tempogauge/report.h"

bool writeAggregateReport(TempoGauge* store, std::string_view htmlfile, std::string_view grouping,
                          std::string_view title, std::string_view metric, bool /*showmeta*/, RawPointVector* raw,
                          const TempoGaugingSystemInfo* systemInfo) {
  ReportFile file(htmlfile);
  if (!file.isOpen()) return false;
  const auto run = startSingleRun(file, store, raw, grouping, metric, systemInfo);
  if (!run) return file.commit();
  const auto aggregates = buildAggregateTable(run->processedPoints);
  collectSystemInfoFirst();

  constexpr bool kAggregateOnly = true;
  ReportDocument doc(file, metric, false, kAggregateOnly, run->hasDetailedMemStats);
  doc.writeOpening(store, run->maxDepth, title);
  doc.write(writeAggregateTabDiv());
  doc.write(writeSystemInfoTable(&recordOrProcessRecord(systemInfo)));
  doc.write(kCenterClose);
  doc.writeBodyEnd(true);
  doc.writeTabScript();
  doc.writeLibraryScripts("none", "none");
  doc.writeAggregateScript();
  doc.write(kScriptOpen);
  doc.write(writeNameArrays(store));
  doc.write(writeAggData(aggregates, metric, kAggregateOnly));
  doc.write(kScriptClose);
  return file.commit();
}
