// SPDX-License-Identifier: BSD-3-Clause
// Export of a run in the Trace Event Format (JSON), which the common trace
// viewers open: one complete event ("ph":"X") per phase execution with its
// start and duration in microseconds of wall-clock time, the CPU time and the
// memory figures as arguments; counter events ("ph":"C") that draw the
// process's memory as a track; metadata naming the process and its thread,
// and the machine's description under "otherData". Gap phases (time that no
// phase accounts for) carry the category "gap", other phases "phase".
#pragma once

#include <iosfwd>
#include <stdexcept>
#include <string_view>

#include "tempogauge/analysis/processed_data_struct.h"
#include "tempogauge/collect/system_info_record.h"

// Raised for a run whose starts and ends don't pair up: it has no phases to
// write. The diagnostic report shows where the pairing fails.
class UnpairedTraceError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Writes the whole document to `out`. `title` names the process in viewers.
void writeTraceEvents(std::ostream& out, const TGProcessedDataStruct& run, const TempoGaugingSystemInfo& info,
                      std::string_view title);

// Writes the document to `jsonFile` through a temporary file beside it that
// replaces the file only when complete. Returns false when it can't be
// written (the file is then left as it was).
bool writeTraceEventFile(std::string_view jsonFile, const TGProcessedDataStruct& run,
                         const TempoGaugingSystemInfo& info, std::string_view title);

// The same for the tracer's own points of `grouping` (a parent grouping
// stands for its members, "GLOBAL" for all), with this process's system
// information.
bool writeTraceEventFile(std::string_view jsonFile, std::string_view grouping);
