// The tempogauge command: reports, comparisons and summaries of saved traces,
// and a built-in demonstration, over the same tracer that scripts call.
#include <iostream>
#include <string>

#include <CLI/CLI.hpp>

#include "cli/command_options.h"
#include "cli/commands.h"
#include "cli/phase_gate.h"
#include "host/level5_check.h"
#include "host/whole_file.h"
#include "scripting/objsys.h"
#include "tempogauge/tempogauge.h"

namespace {

namespace TG = tempogauge::TempoGauge;

// The message of a failure that carries a message ID. A trace that could not
// be opened also says why.
std::string describeFailure(const hfnd::except::IMsgIDException& e) {
  std::string text = e.get_error_id() + ": " + e.messageText();
  const auto& record = e.record();
  if (record.name == TG::OpenFileFailed::name && !record.arguments.empty()) {
    std::vector<tg::level5::Variable> variables;
    bool swapped = false;
    tg::level5::FileProblem problem = tg::level5::FileProblem::None;
    if (!tg::level5::readFile(record.arguments[0], variables, swapped, &problem)) {
      if (text.ends_with('.')) text.pop_back();
      text += std::string(": ") + tg::level5::describe(problem) + ".";
    }
  }
  // A file that could not be written says why: a full disk, a missing folder.
  const std::size_t written = record.name == TG::WriteFileFailed::name ? 0 : 1;
  if ((record.name == TG::WriteFileFailed::name || record.name == TG::DataWriteFail::name) &&
      record.arguments.size() > written) {
    const std::string why = lastWriteProblem(record.arguments[written]);
    if (!why.empty()) {
      if (text.ends_with('.')) text.pop_back();
      text += ": " + why + ".";
    }
  }
  return text;
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Reports, comparisons and summaries of saved tempogauge traces.", "tempogauge");
  app.set_version_flag("--version", std::string("tempogauge ") + tempogauge_version);
  app.require_subcommand(1);
  app.footer("Run 'tempogauge COMMAND --help' for the options of a command.\n"
             "Metrics: time, basicmemory, detailedmemory.");
  tg::cli::addReportCommand(app);
  tg::cli::addDiffCommand(app);
  tg::cli::addDiagnoseCommand(app);
  tg::cli::addSummaryCommand(app);
  tg::cli::addExportCommand(app);
  tg::cli::addDemoCommand(app);

  // The parser would only say that a command is required.
  if (argc > 1 && argv[1][0] != '-' &&
      app.get_subcommands([&](CLI::App* command) { return command->get_name() == argv[1]; }).empty()) {
    std::cerr << "tempogauge: unknown command '" << argv[1] << "'\nRun 'tempogauge --help' for usage.\n";
    return 2;
  }

  ORInitialize_tempogauge();
  try {
    app.parse(argc, argv);  // runs the chosen command's callback
    return 0;
  } catch (const CLI::ParseError& e) {
    if (e.get_exit_code() == 0) return app.exit(e);  // --help, --version
    std::cerr << "tempogauge: " << e.what() << "\n"
              << "Run 'tempogauge --help' for usage.\n";
    return 2;
  } catch (const tg::cli::GateFailure&) {
    return 3;  // the table of the phases above the limits is printed
  } catch (const hfnd::except::IMsgIDException& e) {
    std::cerr << "tempogauge: " << describeFailure(e) << "\n";
  } catch (const objsys::CallError& e) {
    std::cerr << "tempogauge: " << e.id() << ": " << e.what() << "\n";
  } catch (const std::exception& e) {
    std::cerr << "tempogauge: " << e.what() << "\n";
  }
  return 1;
}
