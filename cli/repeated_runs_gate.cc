// SPDX-License-Identifier: BSD-3-Clause
#include "cli/repeated_runs_gate.h"

#include <functional>
#include <iostream>
#include <sstream>

#include "cli/saved_run.h"
#include "tempogauge/tempogauge.h"

namespace tg::cli {
namespace {

// One column of the table: its heading, its key in CSV and JSON, its
// decimals in text (-1: a text column) and its cell.
struct Column {
  std::string heading, key;
  int decimals;
  std::function<OutputTable::Cell(const RepeatedRunsChange&)> cell;
};

std::vector<Column> columnsFor(const RepeatedRunsOptions& o, const std::string& unit) {
  std::vector<Column> columns = {
      {"Phase", "phase", -1, [](const auto& c) { return c.phase; }},
      {"Grouping", "grouping", -1, [](const auto& c) { return c.grouping; }},
  };
  // The same three figures for each side.
  const struct {
    const std::string& label;
    std::string key;
    SampleSummary RepeatedRunsChange::*summary;
  } sides[] = {{o.baselineLabel, "a", &RepeatedRunsChange::baselineSummary},
               {o.candidateLabel, "b", &RepeatedRunsChange::candidateSummary}};
  const struct {
    const char* name;
    double SampleSummary::*field;
  } figures[] = {{"median", &SampleSummary::median}, {"min", &SampleSummary::min}, {"max", &SampleSummary::max}};
  for (const auto& side : sides) {
    for (const auto& figure : figures) {
      columns.push_back({side.label + " " + figure.name + " (" + unit + ")", side.key + "_" + figure.name, 6,
                         [s = side.summary, f = figure.field](const auto& c) { return (c.*s).*f; }});
    }
  }
  columns.push_back({"Change (" + unit + ")", "change", 6, [](const auto& c) { return c.absolute; }});
  columns.push_back({"Change (%)", "change_percent", 1, [](const auto& c) { return c.relative; }});
  columns.push_back({"U", "u", 1, [](const auto& c) { return c.test.u; }});
  columns.push_back({"p", "p", 4, [](const auto& c) { return c.test.p; }});
  return columns;
}

std::vector<TGProcessedDataStruct> readRuns(const std::vector<std::string>& files, const std::string& grouping) {
  std::vector<TGProcessedDataStruct> runs;
  runs.reserve(files.size());
  for (const std::string& file : files) runs.push_back(readPairedRun(file, grouping).data);
  return runs;
}

bool fails(const RepeatedRunsChange& c, const GateOptions& gate, double alpha) {
  return c.inCandidate && c.relative > gate.failAbove && c.absolute > gate.minAbs && c.test.p <= alpha;
}

}  // namespace

void runRepeatedRunsGate(const RepeatedRunsOptions& runs, const std::string& metric, const std::string& grouping,
                         const GateOptions& gate) {
  const std::vector<TGProcessedDataStruct> baseline = readRuns(runs.baseline, grouping);
  const std::vector<TGProcessedDataStruct> candidate = readRuns(runs.candidate, grouping);
  const std::size_t n = baseline.size(), m = candidate.size();
  const std::string counts = std::to_string(n) + " runs against " + std::to_string(m);
  if (gate.gating() && smallestRankTestP(n, m) > runs.alpha) {
    std::cerr << "tempogauge: warning: with " << counts << " the rank test gives no p-value below "
              << smallestRankTestP(n, m) << " (unless figures tie), which is above --alpha " << runs.alpha
              << ": the gate cannot fail. Give at least " << samplesNeededForRankTest(runs.alpha)
              << " runs on each side.\n";
  }

  const std::string unit = unitOf(metric);
  const std::vector<Column> columns = columnsFor(runs, unit);
  OutputTable table;
  for (const Column& column : columns) table.addColumn(column.heading, column.key, column.decimals);
  for (const RepeatedRunsChange& change : compareRepeatedRuns(baseline, candidate, metric)) {
    if (gate.gating() && !fails(change, gate, runs.alpha)) continue;
    std::vector<OutputTable::Cell> cells;
    for (const Column& column : columns) cells.push_back(column.cell(change));
    table.addRow(std::move(cells));
  }
  if (gate.gating() && table.rowCount() == 0 && gate.format == OutputFormat::Text) {
    std::cout << "no phase grew by more than " << limitsText(gate, unit) << " at p <= " << runs.alpha << " ("
              << counts << ")\n";
    return;
  }
  table.print(std::cout, gate.format);
  if (gate.gating() && table.rowCount() > 0)
    throw GateFailure(std::to_string(table.rowCount()) + " phases grew significantly by more than the limits");
}

}  // namespace tg::cli
