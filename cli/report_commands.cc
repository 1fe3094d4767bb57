// The subcommands that turn saved traces into reports. report and diagnose
// call the GaugeKit.Tracer methods, as scripts do; diff reads both traces and
// drives the comparison's writer itself, so that all of its options can be
// given at once (the methods take at most six name/value pairs).
#include <memory>
#include <string>

#include "cli/command_options.h"
#include "cli/commands.h"
#include "cli/phase_gate.h"
#include "cli/repeated_runs_gate.h"
#include "cli/saved_run.h"
#include "cli/output_guard.h"
#include "cli/tracer_call.h"
#include "tempogauge/tempogauge.h"

namespace tg::cli {
namespace {

namespace TG = tempogauge::TempoGauge;

struct ReportOptions {
  std::string trace, out, metric, grouping;
  bool aggregate = false;
};

struct DiffOptions {
  std::string lhs, rhs, out, metric, grouping, lhsLabel, rhsLabel;
  bool aggregate = false;
  GateOptions gate;
  RepeatedRunsOptions runs;  // --runs A... --vs B...
};

struct DiagnoseOptions {
  std::string trace, out, grouping;
};

void runReport(const ReportOptions& o) {
  const std::string out = o.out.empty() ? reportNameFor(o.trace, o.aggregate ? "-aggregate" : "") : o.out;
  refuseInputAsOutput(out, {o.trace});
  MethodArgs call;
  call.option("htmlfile", out).option("orffile", o.trace).option("metric", o.metric).option("grouping", o.grouping);
  callTracer(o.aggregate ? "generateAggregateReport" : "generateHTMLReport", std::move(call));
  printWritten(out);
}

// One side of a comparison, read as the comparison methods read it.
struct Side {
  RawPointVector raw;
  TempoGaugingSystemInfo info;
};

Side readSide(const std::string& file) {
  Side side;
  std::string root;  // unused: a comparison strips names with the host's own root
  if (!loadTraceFile(file, side.raw, side.info, root)) tgRaise<TG::OpenFileFailed>(file);
  if (side.raw.empty()) tgRaise<TG::NoRawTracerDataLoaded>(file);
  return side;
}

bool pairsUp(RawPointVector raw, const std::string& grouping) {
  return !tgGetProcessedDataForGroupings(&raw, groupingsFor(grouping)).hasErrors;
}

void runDiff(DiffOptions o) {
  if (!o.runs.baseline.empty()) {
    if (!o.lhs.empty()) throw CLI::ValidationError("give either LHS and RHS or --runs ... --vs ..., not both");
    if (!o.lhsLabel.empty()) o.runs.baselineLabel = o.lhsLabel;
    if (!o.rhsLabel.empty()) o.runs.candidateLabel = o.rhsLabel;
    return runRepeatedRunsGate(o.runs, o.metric, o.grouping, o.gate);
  }
  if (o.rhs.empty()) throw CLI::ValidationError("diff needs two saved traces, LHS and RHS, or --runs A.orf ... --vs B.orf ...");
  if (o.gate.active())
    return runGate(readPairedRun(o.lhs, o.grouping).data, readPairedRun(o.rhs, o.grouping).data, o.metric, o.gate);
  const std::string out =
      o.out.empty() ? reportNameFor(o.lhs, "-vs-" + stemOf(o.rhs) + (o.aggregate ? "-aggregate" : "")) : o.out;
  refuseInputAsOutput(out, {o.lhs, o.rhs});
  Side left = readSide(o.lhs);
  Side right = readSide(o.rhs);
  hostRootPathSet(getHostRoot());
  const std::string lhsLabel = o.lhsLabel.empty() ? stemOf(o.lhs) : o.lhsLabel;
  const std::string rhsLabel = o.rhsLabel.empty() ? stemOf(o.rhs) : o.rhsLabel;
  const auto writer = o.aggregate ? &writeAggregateDifferenceReport : &writeDifferenceReport;
  // A comparison of a run whose phases don't pair up is not written: the
  // command says which run it is.
  for (const auto* side : {&o.lhs, &o.rhs}) {
    if (!pairsUp(side == &o.lhs ? left.raw : right.raw, o.grouping))
      throw CommandError("the starts and ends of the phases in " + *side +
                         " do not pair up; run 'tempogauge diagnose " + *side + "' to see where");
  }
  if (!writer(TempoGauge::instance(), out, o.grouping, lhsLabel, rhsLabel, &left.raw, &right.raw, &left.info,
              &right.info, o.metric))
    tgRaise<TG::WriteFileFailed>(out);
  printWritten(out);
}

void runDiagnose(const DiagnoseOptions& o) {
  const std::string out = o.out.empty() ? reportNameFor(o.trace, "-diagnostic") : o.out;
  refuseInputAsOutput(out, {o.trace});
  MethodArgs call;
  call.option("htmlfile", out).option("orffile", o.trace).option("grouping", o.grouping);
  callTracer("diagnosticReport", std::move(call));
  printWritten(out);
}

}  // namespace

void addReportCommand(CLI::App& app) {
  auto o = std::make_shared<ReportOptions>();
  CLI::App* command = app.add_subcommand("report", "Write the report of one saved run");
  addTrace(*command, "TRACE", o->trace, "the saved trace (.orf)");
  addOutFile(*command, o->out);
  addMetric(*command, o->metric);
  addGrouping(*command, o->grouping);
  command->add_flag("--aggregate", o->aggregate, "only the table of phases, summed over their executions");
  command->footer("Writes TRACE.html (TRACE-aggregate.html with --aggregate) unless -o is given.");
  command->callback([o] { runReport(*o); });
}

void addDiffCommand(CLI::App& app) {
  auto o = std::make_shared<DiffOptions>();
  CLI::App* command = app.add_subcommand("diff", "Compare two saved runs phase by phase");
  command->add_option("LHS", o->lhs, "the saved trace of the baseline run")->type_name("");
  command->add_option("RHS", o->rhs, "the saved trace of the run to compare with it")->type_name("");
  addOutFile(*command, o->out);
  addMetric(*command, o->metric);
  addGrouping(*command, o->grouping);
  command->add_flag("--aggregate", o->aggregate, "only the table of phases, summed over their executions");
  command->add_option("--lhs-label", o->lhsLabel, "the baseline's name in the report (default: its file's name)")
      ->type_name("L");
  command->add_option("--rhs-label", o->rhsLabel, "the other run's name in the report (default: its file's name)")
      ->type_name("R");
  addGateOptions(*command, o->gate);
  CLI::Option* runs = command->add_option("--runs", o->runs.baseline, "repeated runs of the baseline (saved traces)")
                          ->type_name("A.orf")
                          ->expected(1, -1);
  CLI::Option* vs = command->add_option("--vs", o->runs.candidate, "repeated runs to compare with them")
                        ->type_name("B.orf")
                        ->expected(1, -1);
  CLI::Option* alpha =
      command->add_option("--alpha", o->runs.alpha, "with --runs, the significance level a failing phase needs")
          ->type_name("P")
          ->check(CLI::PositiveNumber & CLI::Range(0.0, 1.0))
          ->capture_default_str();
  runs->needs(vs);
  vs->needs(runs);
  alpha->needs(runs);
  for (const char* report : {"--out-file", "--aggregate"}) runs->excludes(report);
  command->footer("Writes LHS-vs-RHS.html (LHS-vs-RHS-aggregate.html with --aggregate) unless -o is given.\n"
                  "With --fail-above or --format, prints the change of each phase instead (with\n"
                  "--fail-above only the phases above the limits, exiting with 3 if there are any).\n"
                  "With --runs A1.orf A2.orf ... --vs B1.orf B2.orf ..., prints per phase the median,\n"
                  "least and greatest figure of each side, the change of the medians and the p-value\n"
                  "of a Mann-Whitney U test; --fail-above then fails only on phases whose change is\n"
                  "also significant at --alpha.");
  command->callback([o] { runDiff(*o); });
}

void addDiagnoseCommand(CLI::App& app) {
  auto o = std::make_shared<DiagnoseOptions>();
  CLI::App* command = app.add_subcommand("diagnose", "Show where the starts and ends of a run's phases fail to pair");
  addTrace(*command, "TRACE", o->trace, "the saved trace (.orf)");
  addOutFile(*command, o->out);
  addGrouping(*command, o->grouping);
  command->footer("Writes TRACE-diagnostic.html unless -o is given.");
  command->callback([o] { runDiagnose(*o); });
}

}  // namespace tg::cli
