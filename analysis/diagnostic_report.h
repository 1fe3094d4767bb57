// SPDX-License-Identifier: BSD-3-Clause
// The diagnostic report: a plain HTML table of the raw points of one grouping,
// start and stop rows alike, with the rows of broken phases in red, so that the
// first mismatch can be found by eye. It runs its own walk, because it must go
// on where the normal pairing result would be empty.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "analysis/pairing.h"
#include "analysis/processed_data_struct.h"
#include "collect/raw_point.h"

class TempoGauge;

// Writes the table of the points of `groupingName` ("GLOBAL" for all) to
// `path`. Returns false when the file can't be opened; nothing else is
// reported. The walk inserts its gap points into `raw`, which the table hides.
bool writeDiagnosticReport(TempoGauge* tracer, const std::string& path, std::string_view groupingName,
                           RawPointVector* raw);

// Width of the table: 0 no extra columns, 1 model and target, 2 also machine
// and chart: the highest point kind among the grouping's points.
std::int32_t diagnosticColumns(const TempoGauge* tracer, const RawPointVector* raw, std::string_view groupingName);

// The pairing walk over the grouping's points (and those of "Unaccounted
// Phase"), filling `map` for every walked point. Phases still open at the end
// get errorRow without setting hasErrors; the totals' copies are 0. Returns 1
// when something was left open or there was nothing to walk, else 0.
std::int32_t walkForDiagnostic(TempoGauge* tracer, RawPointVector* raw, std::string_view groupingName,
                               RawToProcessedMap& map, TGProcessedDataStruct& result);
