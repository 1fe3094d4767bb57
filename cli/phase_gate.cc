#include "cli/phase_gate.h"

#include <cmath>
#include <iostream>
#include <sstream>

#include "analysis/alignment.h"
#include "analysis/repeated_runs.h"
#include "collect/constants.h"

namespace tg::cli {

const char* unitOf(std::string_view metric) { return metric == tg::kMetricTime ? "s" : "MiB"; }

std::string limitsText(const GateOptions& options, const std::string& unit) {
  std::ostringstream text;
  text << options.failAbove << "%";
  if (options.minAbs > 0) text << " and " << options.minAbs << " " << unit;
  return text.str();
}

void addGateOptions(CLI::App& command, GateOptions& options) {
  command.add_option("--fail-above", options.failAbove,
                     "print the phases whose main figure grew by more than PCT percent and exit with 3")
      ->type_name("PCT")
      ->check(CLI::NonNegativeNumber);
  command.add_option("--min-abs", options.minAbs,
                     "with --fail-above, only phases that also grew by more than X (s or MiB)")
      ->type_name("X")
      ->check(CLI::NonNegativeNumber);
  addFormat(command, options.format, &options.formatGiven);
}

std::vector<PhaseChange> comparePhases(const TGProcessedDataStruct& lhs, const TGProcessedDataStruct& rhs,
                                       std::string_view metric) {
  const AggregateTable lhsTable = buildAggregateTable(lhs.processedPoints);
  const AggregateTable rhsTable = buildAggregateTable(rhs.processedPoints);
  std::vector<PhaseChange> changes;
  for (const AggregateComparisonRow& row : alignAggregates(lhsTable, rhsTable)) {
    const TGAggregateDataPoint* lead = row.lhs ? row.lhs : row.rhs;
    if (!lead) continue;
    PhaseChange c;
    c.phase = tgGetNameStr(tg::kPhaseKind, lead->phaseID);
    c.grouping = tgGetNameStr(tg::kGroupingKind, lead->grouping);
    c.inLhs = row.lhs != nullptr;
    c.inRhs = row.rhs != nullptr;
    c.lhs = row.lhs ? phaseMainFigure(*row.lhs, metric) : 0.0;
    c.rhs = row.rhs ? phaseMainFigure(*row.rhs, metric) : 0.0;
    c.absolute = c.rhs - c.lhs;
    if (!c.inLhs) c.relative = std::numeric_limits<double>::infinity();
    else if (c.lhs != 0.0) c.relative = 100.0 * c.absolute / std::fabs(c.lhs);
    else c.relative = c.absolute == 0.0 ? 0.0 : std::copysign(std::numeric_limits<double>::infinity(), c.absolute);
    changes.push_back(std::move(c));
  }
  return changes;
}

bool isAboveLimits(const PhaseChange& change, double percent, double minAbs) {
  return change.inRhs && change.relative > percent && change.absolute > minAbs;
}

void runGate(const TGProcessedDataStruct& lhs, const TGProcessedDataStruct& rhs, std::string_view metric,
             const GateOptions& options) {
  const std::string unit = unitOf(metric);
  OutputTable table;
  table.addColumn("Phase", "phase");
  table.addColumn("Grouping", "grouping");
  table.addColumn("LHS (" + unit + ")", "lhs", 6);
  table.addColumn("RHS (" + unit + ")", "rhs", 6);
  table.addColumn("Change (" + unit + ")", "change", 6);
  table.addColumn("Change (%)", "change_percent", 1);
  for (const PhaseChange& c : comparePhases(lhs, rhs, metric)) {
    if (options.gating() && !isAboveLimits(c, options.failAbove, options.minAbs)) continue;
    table.addRow({c.phase, c.grouping, c.lhs, c.rhs, c.absolute, c.relative});
  }
  if (options.gating() && table.rowCount() == 0 && options.format == OutputFormat::Text) {
    std::cout << "no phase grew by more than " << limitsText(options, unit) << "\n";
    return;
  }
  table.print(std::cout, options.format);
  if (options.gating() && table.rowCount() > 0)
    throw GateFailure(std::to_string(table.rowCount()) + " phases grew by more than the limits");
}

}  // namespace tg::cli
