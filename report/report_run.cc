// SPDX-License-Identifier: BSD-3-Clause
#include "report/report_run.h"

#include <vector>

#include "analysis/pairing.h"
#include "collect/constants.h"
#include "report/document_fragments.h"
#include "store/system_info_collection.h"

namespace {

// Writes the error page or the page of the missing detail when the run can't
// give a single-run report, and says whether it did.
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

}  // namespace

TGProcessedDataStruct analyzeRunForGrouping(TempoGauge* store, RawPointVector* raw, std::string_view grouping) {
  const std::vector<std::string> groupings{std::string(grouping)};
  return processedDataFor(store, raw, groupings, false);
}

std::optional<TGProcessedDataStruct> startSingleRun(ReportFile& file, TempoGauge* store, RawPointVector* raw,
                                                    std::string_view grouping, std::string_view metric,
                                                    const TempoGaugingSystemInfo* systemInfo) {
  if (systemInfo == nullptr) collectSystemInfoFirst();
  std::optional<TGProcessedDataStruct> run{std::in_place, analyzeRunForGrouping(store, raw, grouping)};
  if (writeSingleRunStandInPage(file, *run, metric)) return std::nullopt;
  return run;
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
