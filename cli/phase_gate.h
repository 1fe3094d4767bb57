// The regression gate of the diff command: each phase's main figure of a
// metric in two runs (wall time in total, the process memory's maximum, or
// the committed memory's maximum), its change, and the phases whose change
// is above the limits. Prints the table in the format asked for and fails
// with exit status 3 when any phase is above them.
#pragma once

#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "cli/output_table.h"
#include "tempogauge/tempogauge.h"

namespace tg::cli {

// Raised when the gate finds phases above its limits; main exits with 3.
class GateFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct GateOptions {
  double failAbove = std::numeric_limits<double>::quiet_NaN();  // percent; NaN: no gate
  double minAbs = 0.0;  // in the metric's unit (s or MiB)
  OutputFormat format = OutputFormat::Text;
  bool formatGiven = false;
  bool gating() const { return failAbove == failAbove; }
  bool active() const { return gating() || formatGiven; }
};

// "s" for time, "MiB" for the memory metrics.
const char* unitOf(std::string_view metric);

// "20%" or "20% and 0.05 s": the limits as the gate's messages give them.
std::string limitsText(const GateOptions& options, const std::string& unit);

// --fail-above PCT, --min-abs X and --format.
void addGateOptions(CLI::App& command, GateOptions& options);

struct PhaseChange {
  std::string phase, grouping;
  double lhs = 0.0, rhs = 0.0;  // the main figure, 0 on the side without the phase
  double absolute = 0.0;        // rhs - lhs
  double relative = 0.0;        // percent of |lhs|; +inf for a phase only the RHS has
  bool inLhs = false, inRhs = false;
};

// One change per phase of either run, aligned by phase name as the
// comparison reports align them, in the order of the LHS then new phases.
std::vector<PhaseChange> comparePhases(const TGProcessedDataStruct& lhs, const TGProcessedDataStruct& rhs,
                                       std::string_view metric);

// Above both limits: the relative change above `percent` and the absolute
// change above `minAbs`. Faster runs and gone phases never are.
bool isAboveLimits(const PhaseChange& change, double percent, double minAbs);

// Prints the changes (only those above the limits when gating) and raises
// GateFailure when gating found any.
void runGate(const TGProcessedDataStruct& lhs, const TGProcessedDataStruct& rhs, std::string_view metric,
             const GateOptions& options);

}  // namespace tg::cli
