// SPDX-License-Identifier: BSD-3-Clause
// What the demo prints once its reports are written: which report to open
// first and what it shows, worked out from the figures of the two runs.
#pragma once

#include <filesystem>
#include <map>
#include <ostream>
#include <string>

namespace tg::cli {

// One phase of a run: its executions, their wall time in all, the most
// resident memory one execution added (MiB), and whether no execution had
// phases inside it.
struct PhaseFigures {
  int calls = 0;
  double wallTotal = 0.0;
  double memoryGrowth = 0.0;
  bool leaf = true;
};

using RunFigures = std::map<std::string, PhaseFigures>;

// The figures of the store's points of `grouping`, gap rows left out; empty
// when the phases don't pair up.
RunFigures collectRunFigures(const std::string& grouping);

// Names the report to open first, in `dir`, and the changes it shows: the
// phases that slowed down and sped up most per execution, those new and
// gone, the one whose count of executions changed that costs most, and the
// one whose memory growth changed most. Only leaves count for the changes of
// time: a parent's time only follows its children's.
void printDemoGuide(std::ostream& out, const std::filesystem::path& dir, const RunFigures& baseline,
                    const RunFigures& changed);

}  // namespace tg::cli
