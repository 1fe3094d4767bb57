// SPDX-License-Identifier: BSD-3-Clause
// Report documents: the drivers that write one self-contained HTML report.
//
// Each driver opens `htmlfile` (truncating it), pairs the raw points of the
// grouping, and writes the page. A single-run driver returns false only when
// the file can't be opened; a trace whose phases don't pair up gives a page
// that points to the diagnostic report, and a "detailedmemory" report of a
// trace without detailed samples gives a page that says so. A comparison
// driver also returns false when either run doesn't pair up, leaving the file
// empty. System information may be collected from the host: its failure is
// thrown before the document is started.
#pragma once

#include <string_view>

#include "tempogauge/collect/raw_point.h"
#include "tempogauge/collect/system_info_record.h"

class TempoGauge;

// Aggregate, call tree and detail views of one run. `raw` null pairs a copy of
// the tracer's own points; `systemInfo` null uses this process's record.
// `showmeta` has no effect on the text.
bool writeDetailReport(TempoGauge* store, std::string_view htmlfile, std::string_view grouping,
                       std::string_view title, std::string_view metric, bool showmeta, RawPointVector* raw,
                       const TempoGaugingSystemInfo* systemInfo);

// The aggregate view of one run.
bool writeAggregateReport(TempoGauge* store, std::string_view htmlfile, std::string_view grouping,
                          std::string_view title, std::string_view metric, bool showmeta, RawPointVector* raw,
                          const TempoGaugingSystemInfo* systemInfo);

// Aggregate and detail views of two runs side by side, LHS as the baseline.
// A null system information record, or an empty right run, uses this
// process's record.
bool writeDifferenceReport(TempoGauge* store, std::string_view htmlfile, std::string_view grouping,
                           std::string_view lhslabel, std::string_view rhslabel, RawPointVector* lhsRaw,
                           RawPointVector* rhsRaw, const TempoGaugingSystemInfo* lhsInfo,
                           const TempoGaugingSystemInfo* rhsInfo, std::string_view metric);

// The aggregate view of two runs side by side.
bool writeAggregateDifferenceReport(TempoGauge* store, std::string_view htmlfile, std::string_view grouping,
                                    std::string_view lhslabel, std::string_view rhslabel, RawPointVector* lhsRaw,
                                    RawPointVector* rhsRaw, const TempoGaugingSystemInfo* lhsInfo,
                                    const TempoGaugingSystemInfo* rhsInfo, std::string_view metric);
