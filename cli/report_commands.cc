// The subcommands that turn saved traces into reports: report, diff and
// diagnose, each a call of the matching GaugeKit.Tracer method.
#include <filesystem>
#include <iostream>

#include "cli/command_line.h"
#include "cli/commands.h"
#include "cli/tracer_call.h"

namespace tg::cli {
namespace {

std::string stemOf(const std::string& file) { return std::filesystem::path(file).stem().string(); }

void printWritten(const std::string& file) {
  std::cout << std::filesystem::absolute(file).lexically_normal().string() << "\n";
}

}  // namespace

int runReport(const std::vector<std::string>& args) {
  const CommandLine line =
      parseCommandLine("report", args, {{"out-file", "metric", "grouping"}, {"aggregate"}, 1});
  const bool aggregate = line.has("aggregate");
  const std::string trace = line.positional[0];
  const std::string out = line.value("out-file").value_or(stemOf(trace) + (aggregate ? "-aggregate" : "") + ".html");
  MethodArgs call;
  call.option("htmlfile", out).option("orffile", trace);
  if (auto metric = line.value("metric")) call.option("metric", *metric);
  if (auto grouping = line.value("grouping")) call.option("grouping", *grouping);
  callTracer(aggregate ? "generateAggregateReport" : "generateHTMLReport", std::move(call));
  printWritten(out);
  return 0;
}

int runDiff(const std::vector<std::string>& args) {
  const CommandLine line = parseCommandLine(
      "diff", args, {{"out-file", "metric", "grouping", "lhs-label", "rhs-label"}, {"aggregate"}, 2});
  const bool aggregate = line.has("aggregate");
  const std::string& lhs = line.positional[0];
  const std::string& rhs = line.positional[1];
  const std::string out = line.value("out-file").value_or(stemOf(lhs) + "-vs-" + stemOf(rhs) +
                                                          (aggregate ? "-aggregate" : "") + ".html");
  // The method takes at most six options; the ones left at their defaults
  // are not passed, so that four of the optional ones fit beside the files.
  MethodArgs call;
  call.option("htmlfile", out).option("lhsfile", lhs).option("rhsfile", rhs);
  int optional = 0;
  for (const auto& [flag, name] : {std::pair{"grouping", "grouping"}, std::pair{"metric", "metric"},
                                   std::pair{"lhs-label", "lhslabel"}, std::pair{"rhs-label", "rhslabel"}}) {
    if (auto value = line.value(flag)) {
      call.option(name, *value);
      ++optional;
    }
  }
  if (optional > 3)
    throw UsageError("diff: --grouping, --metric, --lhs-label and --rhs-label cannot all be given at once "
                     "(the comparison takes at most six options)");
  callTracer(aggregate ? "generateAggregateDifferenceReport" : "generateDifferenceReport", std::move(call));
  printWritten(out);
  return 0;
}

int runDiagnose(const std::vector<std::string>& args) {
  const CommandLine line = parseCommandLine("diagnose", args, {{"out-file", "grouping"}, {}, 1});
  const std::string& trace = line.positional[0];
  const std::string out = line.value("out-file").value_or(stemOf(trace) + "-diagnostic.html");
  MethodArgs call;
  call.option("htmlfile", out).option("orffile", trace);
  if (auto grouping = line.value("grouping")) call.option("grouping", *grouping);
  callTracer("diagnosticReport", std::move(call));
  printWritten(out);
  return 0;
}

}  // namespace tg::cli
