// SPDX-License-Identifier: BSD-3-Clause
// The demo's closing guide.
#include "cli/demo_guide.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <vector>

#include "tempogauge/tempogauge.h"

namespace tg::cli {
namespace {

std::string number(double value, int decimals) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value);
  return buffer;
}

double perCall(const PhaseFigures& f) { return f.calls > 0 ? f.wallTotal / f.calls : 0.0; }

// The entry of `run` that `better` prefers over all others (null if none).
template <class Better>
const RunFigures::value_type* best(const RunFigures& run, Better better) {
  const RunFigures::value_type* found = nullptr;
  for (const auto& entry : run)
    if (!found || better(entry, *found)) found = &entry;
  return found;
}

}  // namespace

RunFigures collectRunFigures(const std::string& grouping) {
  RunFigures figures;
  const TGProcessedDataStruct data = tgGetProcessedDataForGroupings(nullptr, {grouping});
  for (const ProcessedPointPtr& point : data.processedPoints) {
    if (point->isGapRow()) continue;
    PhaseFigures& f = figures[tgGetNameStr(tg::kPhaseKind, point->phaseID)];
    ++f.calls;
    f.wallTotal += point->wcElapsedTime;
    if (point->basicMem) f.memoryGrowth = std::max(f.memoryGrowth, point->basicMem->procMemUsageDelta);
    if (point->numChildren > 0) f.leaf = false;
  }
  return figures;
}

void printDemoGuide(std::ostream& out, const std::filesystem::path& dir, const RunFigures& baseline,
                    const RunFigures& changed) {
  RunFigures both;  // the changed run's figures of phases that both runs have
  std::vector<std::string> added, gone;
  for (const auto& [name, f] : changed) {
    if (baseline.contains(name))
      both[name] = f;
    else
      added.push_back(name);
  }
  for (const auto& [name, f] : baseline)
    if (!changed.contains(name)) gone.push_back(name);
  auto ratio = [&](const RunFigures::value_type& e) {
    const double before = perCall(baseline.at(e.first));
    return before > 0.0 ? perCall(e.second) / before : 1.0;
  };

  const std::string first = (std::filesystem::absolute(dir) / "time-difference.html").lexically_normal().string();
  out << "\nOpen first: " << first << "\n"
      << "  the two runs side by side, phase by phase (Details tab; the Aggregate tab sums each phase).\n"
      << "  In the changed run:\n";
  auto timeLine = [&](const RunFigures::value_type* e, const char* how) {
    if (!e) return;
    out << "    \"" << e->first << "\" " << how << ": " << number(ratio(*e), 2) << " times the time per execution ("
        << number(perCall(baseline.at(e->first)), 3) << " s -> " << number(perCall(e->second), 3) << " s)\n";
  };
  // The two that slowed down most and the one that sped up most; changes
  // within a third or so are the machine's, not the workload's.
  RunFigures rest, leaves;
  for (const auto& [name, f] : both)
    if (f.leaf && baseline.at(name).leaf) leaves[name] = f;
  rest = leaves;
  for (int shown = 0; shown < 2; ++shown) {
    const auto* slower = best(rest, [&](const auto& a, const auto& b) { return ratio(a) > ratio(b); });
    if (!slower || ratio(*slower) < 1.5) break;
    timeLine(slower, "slowed down");
    const std::string name = slower->first;  // erase by a copy: the key dies with the entry
    rest.erase(name);
  }
  const auto* faster = best(leaves, [&](const auto& a, const auto& b) { return ratio(a) < ratio(b); });
  if (faster && ratio(*faster) <= 0.67) timeLine(faster, "sped up");
  for (const std::string& name : added) out << "    \"" << name << "\" is new\n";
  for (const std::string& name : gone) out << "    \"" << name << "\" is gone\n";
  RunFigures recounted;
  for (const auto& [name, f] : both)
    if (f.calls != baseline.at(name).calls) recounted[name] = f;
  if (const auto* loop = best(recounted, [](const auto& a, const auto& b) { return a.second.wallTotal > b.second.wallTotal; }))
    out << "    \"" << loop->first << "\" runs " << loop->second.calls << " times instead of "
        << baseline.at(loop->first).calls << " (" << recounted.size() - 1 << " other phases change their count with it)\n";
  auto growthChange = [&](const RunFigures::value_type& e) {
    return std::abs(e.second.memoryGrowth - baseline.at(e.first).memoryGrowth);
  };
  if (const auto* memory = best(both, [&](const auto& a, const auto& b) { return growthChange(a) > growthChange(b); });
      memory && growthChange(*memory) >= 1.0)
    out << "  basicmemory-difference.html: \"" << memory->first << "\" adds " << number(memory->second.memoryGrowth, 1)
        << " MiB of resident memory (was " << number(baseline.at(memory->first).memoryGrowth, 1) << " MiB).\n";
}

}  // namespace tg::cli
