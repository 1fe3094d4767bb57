// SPDX-License-Identifier: BSD-3-Clause
// What the drivers share: the analysis of a run, the pages that stand in for
// a report, titles and system information.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "analysis/processed_data_struct.h"
#include "collect/raw_point.h"
#include "collect/system_info_record.h"
#include "report/report_file.h"

class TempoGauge;

// Pairs the run's points of one grouping; a null `raw` pairs a copy of the
// tracer's own points.
TGProcessedDataStruct analyzeRunForGrouping(TempoGauge* store, RawPointVector* raw, std::string_view grouping);

// The paired run of a single-run report; empty when a stand-in page was
// written instead. Without a given system information record, this process's
// record is collected first, so that a failing collection stops the report
// before anything is written.
std::optional<TGProcessedDataStruct> startSingleRun(ReportFile& file, TempoGauge* store, RawPointVector* raw,
                                                    std::string_view grouping, std::string_view metric,
                                                    const TempoGaugingSystemInfo* systemInfo);

// "Performance Comparison", after the grouping's name unless it is "GLOBAL".
std::string comparisonTitle(std::string_view grouping);

// The record to show: the given one, or this process's record (collected at
// first use) when there is none.
const TempoGaugingSystemInfo& recordOrProcessRecord(const TempoGaugingSystemInfo* record);

// Collects this process's record and drops it, so that a failing collection
// stops a report before its document is started.
void collectSystemInfoFirst();

// The records a comparison shows: each side's own, or this process's record
// for a side without one; the right side also takes it when its run is empty.
struct ComparisonRecords {
  const TempoGaugingSystemInfo& lhs;
  const TempoGaugingSystemInfo& rhs;
};
ComparisonRecords comparisonRecords(const TempoGaugingSystemInfo* lhsInfo, const TempoGaugingSystemInfo* rhsInfo,
                                    const RawPointVector* rhsRaw);
