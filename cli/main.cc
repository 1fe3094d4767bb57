// The tempogauge command: reports, comparisons and summaries of saved traces,
// and a built-in demonstration, over the same methods that scripts call.
#include <iostream>
#include <string>
#include <vector>

#include "cli/command_line.h"
#include "cli/commands.h"
#include "scripting/errors.h"
#include "scripting/objsys.h"
#include "tempogauge/collect.h"

namespace {

constexpr const char* kUsage =
    "usage: tempogauge COMMAND ...\n"
    "  report TRACE.orf [-o FILE] [--metric M] [--grouping G] [--aggregate]\n"
    "  diff LHS.orf RHS.orf [-o FILE] [--metric M] [--grouping G] [--aggregate]\n"
    "       [--lhs-label L] [--rhs-label R]\n"
    "  diagnose TRACE.orf [-o FILE] [--grouping G]\n"
    "  summary TRACE.orf [--grouping G]\n"
    "  demo [--out DIR]\n"
    "Metrics: time, basicmemory, detailedmemory.\n";

int dispatch(const std::string& command, const std::vector<std::string>& args) {
  if (command == "report") return tg::cli::runReport(args);
  if (command == "diff") return tg::cli::runDiff(args);
  if (command == "diagnose") return tg::cli::runDiagnose(args);
  if (command == "summary") return tg::cli::runSummary(args);
  if (command == "demo") return tg::cli::runDemo(args);
  throw tg::cli::UsageError("unknown command '" + command + "'");
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> all(argv + 1, argv + argc);
  if (all.empty() || all[0] == "-h" || all[0] == "--help" || all[0] == "help") {
    std::cout << kUsage;
    return all.empty() ? 2 : 0;
  }
  ORInitialize_tempogauge();
  try {
    return dispatch(all[0], std::vector<std::string>(all.begin() + 1, all.end()));
  } catch (const hfnd::except::IMsgIDException& e) {
    std::cerr << "tempogauge: " << e.get_error_id() << ": " << e.messageText() << "\n";
  } catch (const objsys::CallError& e) {
    std::cerr << "tempogauge: " << e.id() << ": " << e.what() << "\n";
  } catch (const tg::cli::UsageError& e) {
    std::cerr << "tempogauge: " << e.what() << "\n" << kUsage;
    return 2;
  } catch (const std::exception& e) {
    std::cerr << "tempogauge: " << e.what() << "\n";
  }
  return 1;
}
