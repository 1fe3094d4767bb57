// The summary subcommand: the aggregate table of a saved trace as text, one
// row per phase, the most expensive first.
#include <algorithm>
#include <cstdio>
#include <iostream>
#include <vector>

#include "cli/command_line.h"
#include "cli/commands.h"
#include "cli/text_table.h"
#include "cli/tracer_call.h"
#include "collect/constants.h"
#include "collect/tempo_gauge.h"
#include "tempogauge/analysis.h"
#include "tempogauge/collect.h"

namespace tg::cli {
namespace {

std::string fixed(double value, int decimals) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value);
  return buffer;
}

}  // namespace

int runSummary(const std::vector<std::string>& args) {
  const CommandLine line = parseCommandLine("summary", args, {{"grouping"}, {}, 1});
  const std::string grouping = line.value("grouping").value_or(std::string(tg::kGlobalGrouping));
  callTracer("loadTracerData", std::move(MethodArgs().text(line.positional[0])));

  // A grouping read from a file has no members in this process's tree: it
  // stands for itself, as "GLOBAL" does.
  std::vector<std::string> groupings = tgGetGroupingList(grouping);
  if (groupings.empty()) groupings.push_back(grouping);
  const TGProcessedDataStruct data = tgGetProcessedDataForGroupings(nullptr, groupings);
  if (data.hasErrors) {
    std::cerr << "tempogauge: the starts and ends of the phases in " << line.positional[0]
              << " do not pair up; run 'tempogauge diagnose " << line.positional[0] << "' to see where\n";
    return 1;
  }
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
    text.addRow({tgGetNameStr(tg::kPhaseKind, row->phaseID), tgGetNameStr(tg::kGroupingKind, row->grouping),
                 std::to_string(row->hitCount), fixed(row->wcTotal, 6), fixed(row->wcSelf, 6),
                 fixed(row->cpuTotal, 6), fixed(row->cpuSelf, 6), fixed(row->procMemUsageMax, 2)});
  }
  text.print(std::cout);
  std::cout << rows.size() << " phases; run wall time " << fixed(data.topWCTotal, 6) << " s, CPU time "
            << fixed(data.topCPUTotal, 6) << " s\n";
  return 0;
}

}  // namespace tg::cli
