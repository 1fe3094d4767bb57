// The aggregate difference report: the aggregate view of two runs side by
// side, with their system information.
#include "analysis/report_data.h"
#include "report/comparison_runs.h"
#include "report/document_fragments.h"
#include "report/report_document.h"
#include "report/report_run.h"
#include "report/system_info_table.h"
#include "report/tab_divs.h"
#include "tempogauge/report.h"

bool writeAggregateDifferenceReport(TempoGauge* store, std::string_view htmlfile, std::string_view grouping,
                                    std::string_view lhslabel, std::string_view rhslabel, RawPointVector* lhsRaw,
                                    RawPointVector* rhsRaw, const TempoGaugingSystemInfo* lhsInfo,
                                    const TempoGaugingSystemInfo* rhsInfo, std::string_view metric) {
  // Both runs are paired before the file is opened.
  const auto start = startComparison(store, grouping, lhsRaw, rhsRaw, metric, false);
  ReportFile file(htmlfile);
  if (!file.isOpen()) return false;
  if (!start.runs) {
    file.writeLines(start.standInPage);
    return file.commit();
  }
  const auto& runs = *start.runs;
  const auto records = comparisonRecords(lhsInfo, rhsInfo, rhsRaw);

  ReportDocument doc(file, metric, true, true, runs.hasDetailedMemStats);
  doc.writeOpening(store, runs.maxDepth, comparisonTitle(grouping));
  doc.write(writeAggregateTabDiv());
  doc.write(writeSystemInfoComparison(records.lhs, records.rhs));
  doc.write(kCenterClose);
  doc.writeTabScript();
  // The detail scroller stands here although the report has no detail view.
  doc.writeBodyEnd(false);
  doc.writeLibraryScripts(lhslabel, rhslabel);
  doc.writeAggregateScript();
  doc.write(kScriptOpen);
  doc.write(writeNameArrays(store));
  doc.write(writeDiffAggData(runs.aggregateRows, metric));
  doc.write(kScriptClose);
  return file.commit();
}
