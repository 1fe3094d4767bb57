// SPDX-License-Identifier: BSD-3-Clause
#include "analysis/repeated_runs.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>

#include "analysis/aggregate_table.h"
#include "collect/constants.h"
#include "collect/paths.h"
#include "tempogauge/collect.h"

double phaseMainFigure(const TGAggregateDataPoint& phase, std::string_view metric) {
  if (metric == tg::kMetricBasicMemory) return phase.procMemUsageMax;
  if (metric == tg::kMetricDetailedMemory) return phase.commitMemMax;
  return phase.wcTotal;
}

SampleSummary summarizeSample(std::vector<double> values) {
  SampleSummary summary;
  if (values.empty()) return summary;
  std::sort(values.begin(), values.end());
  const std::size_t half = values.size() / 2;
  summary.median = values.size() % 2 ? values[half] : (values[half - 1] + values[half]) / 2.0;
  summary.min = values.front();
  summary.max = values.back();
  return summary;
}

std::vector<RepeatedRunsChange> compareRepeatedRuns(const std::vector<TGProcessedDataStruct>& baseline,
                                                    const std::vector<TGProcessedDataStruct>& candidate,
                                                    std::string_view metric) {
  TempoGauge* const tracer = TempoGauge::instance();
  std::vector<RepeatedRunsChange> changes;
  std::map<std::string, std::size_t> rowOfKey;
  const std::size_t runs = baseline.size() + candidate.size();
  // Each run's figures go to the rows of its phases; a row starts with 0 for
  // every run and is created by the first run that has the phase.
  for (std::size_t r = 0; r < runs; ++r) {
    const bool isBaseline = r < baseline.size();
    const TGProcessedDataStruct& run = isBaseline ? baseline[r] : candidate[r - baseline.size()];
    const std::size_t index = isBaseline ? r : r - baseline.size();
    std::map<std::string, int> seen;  // occurrences of each cleaned name in this run
    for (const auto& entry : buildAggregateTable(run.processedPoints)) {
      const TGAggregateDataPoint& phase = *entry.second;
      const std::string name = tracer->lookupName(tg::kPhaseKind, phase.phaseID);
      const std::string cleaned = cleanPhaseName(name, true);
      const std::string key = cleaned + '\n' + std::to_string(seen[cleaned]++);
      auto [at, added] = rowOfKey.try_emplace(key, changes.size());
      if (added) {
        RepeatedRunsChange& row = changes.emplace_back();
        row.phase = name;
        row.grouping = tgGetNameStr(tg::kGroupingKind, phase.grouping);
        row.baseline.assign(baseline.size(), 0.0);
        row.candidate.assign(candidate.size(), 0.0);
      }
      RepeatedRunsChange& row = changes[at->second];
      (isBaseline ? row.baseline : row.candidate)[index] = phaseMainFigure(phase, metric);
      (isBaseline ? row.inBaseline : row.inCandidate) = true;
    }
  }
  for (RepeatedRunsChange& row : changes) {
    row.baselineSummary = summarizeSample(row.baseline);
    row.candidateSummary = summarizeSample(row.candidate);
    const double before = row.baselineSummary.median;
    row.absolute = row.candidateSummary.median - before;
    if (!row.inBaseline) row.relative = std::numeric_limits<double>::infinity();
    else if (before != 0.0) row.relative = 100.0 * row.absolute / std::fabs(before);
    else row.relative = row.absolute == 0.0 ? 0.0 : std::copysign(std::numeric_limits<double>::infinity(), row.absolute);
    row.test = mannWhitneyUTest(row.candidate, row.baseline);
  }
  return changes;
}
