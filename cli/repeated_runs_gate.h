// SPDX-License-Identifier: BSD-3-Clause
// The diff command on repeated runs (--runs A... --vs B...): per phase the
// median and range of its main figure on each side, the change of the
// medians and the Mann-Whitney U test's p-value. The gate of --fail-above
// and --min-abs fails (exit status 3) only on phases whose change is above
// the limits and significant at --alpha.
#pragma once

#include <string>
#include <vector>

#include "cli/phase_gate.h"

namespace tg::cli {

struct RepeatedRunsOptions {
  std::vector<std::string> baseline, candidate;  // the trace files of each side
  std::string baselineLabel = "A", candidateLabel = "B";
  double alpha = 0.05;
};

// Reads and pairs every run, prints the table (with --fail-above only the
// phases that fail) and raises GateFailure when any does. Warns on standard
// error when the runs are too few for any p-value to reach alpha.
void runRepeatedRunsGate(const RepeatedRunsOptions& runs, const std::string& metric, const std::string& grouping,
                         const GateOptions& gate);

}  // namespace tg::cli
