// SPDX-License-Identifier: BSD-3-Clause
// Trace analysis: processed points, pairing, aggregate table and call tree.
#pragma once

#include <string>
#include <vector>

#include "tempogauge/analysis/aggregate_table.h"
#include "tempogauge/analysis/call_tree.h"
#include "tempogauge/analysis/processed_data_struct.h"
#include "tempogauge/analysis/rank_test.h"
#include "tempogauge/analysis/repeated_runs.h"
#include "tempogauge/analysis/trace_event_export.h"
#include "tempogauge/analysis/processed_point.h"
#include "tempogauge/collect/raw_point.h"

// Pairs the points of the named groupings (or of the named models). A null
// `raw` pairs a deep copy of the tracer's own points; a given vector keeps the
// gap points that pairing inserts into it.
TGProcessedDataStruct tgGetProcessedDataForGroupings(RawPointVector* raw, const std::vector<std::string>& names);
TGProcessedDataStruct tgGetProcessedDataForModels(RawPointVector* raw, const std::vector<std::string>& names);
