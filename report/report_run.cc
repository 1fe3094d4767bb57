#include "report/report_run.h"

#include <vector>

#include "analysis/pairing.h"
#include "collect/constants.h"
#include "report/document_fragments.h"
#include "store/system_info_collection.h"

TGProcessedDataStruct analyzeRunForGrouping(TempoGauge* store, RawPointVector* raw, std::string_view grouping) {
  const std::vector<std::string> groupings{std::string(grouping)};
  return processedDataFor(store, raw, groupings, false);
}

bool writeSingleRunStandInPage(ReportFile& file, const TGProcessedDataStruct& run, std::string_view metric) {
  if (run.hasErrors) {
    file.writeLines(kErrorPageLines);
    return true;
  }
  if (metric == tg::kMetricDetailedMemory && !run.hasDetailedMemStats) {
    file.writeLines(kMissingDetailPageLines);
    return true;
  }
  return false;
}

std::string comparisonTitle(std::string_view grouping) {
  if (grouping == tg::kGlobalGrouping) return "Performance Comparison";
  return std::string(grouping) + " Performance Comparison";
}

const TempoGaugingSystemInfo& recordOrProcessRecord(const TempoGaugingSystemInfo* record) {
  if (record != nullptr) return *record;
  static const TempoGaugingSystemInfo kEmpty;
  const auto* cached = getCachedSystemInfo();
  return cached != nullptr ? *cached : kEmpty;
}

void collectSystemInfoFirst() {
  TempoGaugingSystemInfo dropped;
  collectSystemInfo(dropped);
}

ComparisonRecords comparisonRecords(const TempoGaugingSystemInfo* lhsInfo, const TempoGaugingSystemInfo* rhsInfo,
                                    const RawPointVector* rhsRaw) {
  const bool rhsEmpty = rhsRaw != nullptr && rhsRaw->empty();
  return {recordOrProcessRecord(lhsInfo), recordOrProcessRecord(rhsEmpty ? nullptr : rhsInfo)};
}
