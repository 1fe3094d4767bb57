// The summary subcommand: the aggregate table of a saved trace as text, one
// row per phase, the most expensive first.
#include <algorithm>
#include <cstdio>
#include <iostream>
#include <memory>
#include <vector>

#include "cli/command_options.h"
#include "cli/commands.h"
#include "cli/output_table.h"
#include "cli/tracer_call.h"
#include "tempogauge/tempogauge.h"

namespace tg::cli {
namespace {

std::string fixed(double value, int decimals) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value);
  return buffer;
}

void runSummary(const std::string& trace, const std::string& grouping, OutputFormat format) {
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

  OutputTable text;
  text.addColumn("Phase", "phase");
  text.addColumn("Grouping", "grouping");
  text.addColumn("Calls", "calls", 0);
  text.addColumn("Wall total (s)", "wall_total", 6);
  text.addColumn("Wall self (s)", "wall_self", 6);
  text.addColumn("CPU total (s)", "cpu_total", 6);
  text.addColumn("CPU self (s)", "cpu_self", 6);
  text.addColumn("Memory max (MiB)", "memory_max", 2);
  for (const TGAggregateDataPoint* row : rows) {
    text.addRow({tgGetNameStr(tg::kPhaseKind, row->phaseID), tgGetNameStr(tg::kGroupingKind, row->grouping),
                 std::int64_t{row->hitCount}, row->wcTotal, row->wcSelf, row->cpuTotal, row->cpuSelf,
                 row->procMemUsageMax});
  }
  text.print(std::cout, format);
  if (format != OutputFormat::Text) return;
  std::cout << rows.size() << " phases; run wall time " << fixed(data.topWCTotal, 6) << " s, CPU time "
            << fixed(data.topCPUTotal, 6) << " s\n";
}

}  // namespace

void addSummaryCommand(CLI::App& app) {
  struct Options {
    std::string trace, grouping;
    OutputFormat format = OutputFormat::Text;
  };
  auto o = std::make_shared<Options>();
  CLI::App* command =
      app.add_subcommand("summary", "Print the table of phases of a saved run, the most expensive first");
  addTrace(*command, "TRACE", o->trace, "the saved trace (.orf)");
  addGrouping(*command, o->grouping);
  addFormat(*command, o->format);
  command->callback([o] { runSummary(o->trace, o->grouping, o->format); });
}

}  // namespace tg::cli
