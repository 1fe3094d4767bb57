// SPDX-License-Identifier: BSD-3-Clause
#include "cli/saved_run.h"

#include "cli/command_options.h"

namespace tg::cli {

namespace TG = tempogauge::TempoGauge;

std::string unpairedMessage(const std::string& file) {
  return "the starts and ends of the phases in " + file + " do not pair up; run 'tempogauge diagnose " + file +
         "' to see where";
}

SavedRun readPairedRun(const std::string& file, const std::string& grouping) {
  SavedRun run;
  run.file = file;
  RawPointVector raw;
  std::string root;  // names keep the root stripped, as in the reports
  if (!loadTraceFile(file, raw, run.info, root)) tgRaise<TG::OpenFileFailed>(file);
  if (raw.empty()) tgRaise<TG::NoRawTracerDataLoaded>(file);
  run.data = tgGetProcessedDataForGroupings(&raw, groupingsFor(grouping));
  if (run.data.hasErrors) throw CommandError(unpairedMessage(file));
  return run;
}

}  // namespace tg::cli
