// SPDX-License-Identifier: BSD-3-Clause
// The export subcommand: a saved run in the Trace Event Format (JSON), for
// the trace viewers that read it.
#include <memory>
#include <string>

#include "cli/command_options.h"
#include "cli/commands.h"
#include "cli/output_guard.h"
#include "cli/saved_run.h"
#include "tempogauge/tempogauge.h"

namespace tg::cli {
namespace {

namespace TG = tempogauge::TempoGauge;

struct ExportOptions {
  std::string trace, out, grouping;
};

void runExport(const ExportOptions& o) {
  const std::string out = o.out.empty() ? stemOf(o.trace) + ".json" : o.out;
  refuseInputAsOutput(out, {o.trace});
  const SavedRun run = readPairedRun(o.trace, o.grouping);
  if (!writeTraceEventFile(out, run.data, run.info, stemOf(o.trace))) tgRaise<TG::WriteFileFailed>(out);
  printWritten(out);
}

}  // namespace

void addExportCommand(CLI::App& app) {
  auto o = std::make_shared<ExportOptions>();
  CLI::App* command =
      app.add_subcommand("export", "Write a saved run in the Trace Event Format (JSON) for trace viewers");
  addTrace(*command, "TRACE", o->trace, "the saved trace (.orf)");
  command->add_option("-o,--out-file", o->out, "the JSON file to write")->type_name("FILE");
  addGrouping(*command, o->grouping);
  command->footer("Writes TRACE.json unless -o is given: one complete event per phase execution, the\n"
                  "process memory as a counter track; gap phases have the category \"gap\".");
  command->callback([o] { runExport(*o); });
}

}  // namespace tg::cli
