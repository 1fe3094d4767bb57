// SPDX-License-Identifier: BSD-3-Clause
// A saved run read for the commands that work on its phases rather than
// write a report: its raw points paired for a grouping, and its system
// information.
#pragma once

#include <string>

#include "tempogauge/tempogauge.h"

namespace tg::cli {

struct SavedRun {
  std::string file;
  TGProcessedDataStruct data;
  TempoGaugingSystemInfo info;
};

// Reads and pairs `file`. A file that can't be read raises OpenFileFailed,
// one without points NoRawTracerDataLoaded, and one whose starts and ends
// don't pair up a CommandError that points to 'tempogauge diagnose'.
SavedRun readPairedRun(const std::string& file, const std::string& grouping);

// The text of the failure for a trace whose phases don't pair up.
std::string unpairedMessage(const std::string& file);

}  // namespace tg::cli
