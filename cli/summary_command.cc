// The summary subcommand: the aggregate table of a saved trace as text, one
// row per phase, the most expensive first.
#include <algorithm>
#include <cstdio>
#include <iostream>
#include <memory>
#include <vector>

#include "cli/command_options.h"
#include "cli/commands.h"
#include "cli/terminal_text.h"
#include "cli/text_table.h"
#include "cli/tracer_call.h"
#include "tempogauge/tempogauge.h"

namespace tg::cli {
namespace {

std::string fixed(double value, int decimals) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value);
  return buffer;
}

void runSummary(const std::string& trace, const std::string& grouping) {
  callTracer("loadTracerData", std::move(MethodArgs().text(trace)));
  if (TempoGauge::instance()->copyRawPoints()->empty()) tgRaise<tempogauge::TempoGauge::NoRawTracerData>();
  const TGProcessedDataStruct data = tgGetProcessedDataForGroupings(nullptr, groupingsFor(grouping));
  if (data.hasErrors)
    throw CommandError("the starts and ends of the phases in " + trace +
                       " do not pair up; run 'tempogauge diagnose " + trace + "' to see where");
  const AggregateTable table = buildAggregateTable(data.processedPoints);
  std::vector<const TGAggregateDataPoint*> rows;
  for (const auto& entry : table) rows.push_back(entry.second.get());
  std::sort(rows.begin(), rows.end(), [](const TGAggregateDataPoint* a, const TGAggregateDataPoint* b) {
    if (a->wcTotal != b->wcTotal) return a->wcTotal > b->wcTotal;
    return a->phaseID < b->phaseID;
  });

  TextTable text;
  using Align = TextTable::Align;
  text.addColumn("Phase", Align::Left);
  text.addColumn("Grouping", Align::Left);
  text.addColumn("Calls", Align::Right);
  text.addColumn("Wall total (s)", Align::Right);
  text.addColumn("Wall self (s)", Align::Right);
  text.addColumn("CPU total (s)", Align::Right);
  text.addColumn("CPU self (s)", Align::Right);
  text.addColumn("Memory max (MiB)", Align::Right);
  for (const TGAggregateDataPoint* row : rows) {
    text.addRow({escapeControls(tgGetNameStr(tg::kPhaseKind, row->phaseID)),
                 escapeControls(tgGetNameStr(tg::kGroupingKind, row->grouping)),
                 std::to_string(row->hitCount), fixed(row->wcTotal, 6), fixed(row->wcSelf, 6),
                 fixed(row->cpuTotal, 6), fixed(row->cpuSelf, 6), fixed(row->procMemUsageMax, 2)});
  }
  text.print(std::cout);
  std::cout << rows.size() << " phases; run wall time " << fixed(data.topWCTotal, 6) << " s, CPU time "
            << fixed(data.topCPUTotal, 6) << " s\n";
}

}  // namespace

void addSummaryCommand(CLI::App& app) {
  struct Options {
    std::string trace, grouping;
  };
  auto o = std::make_shared<Options>();
  CLI::App* command =
      app.add_subcommand("summary", "Print the table of phases of a saved run, the most expensive first");
  addTrace(*command, "TRACE", o->trace, "the saved trace (.orf)");
  addGrouping(*command, o->grouping);
  command->callback([o] { runSummary(o->trace, o->grouping); });
}

}  // namespace tg::cli
