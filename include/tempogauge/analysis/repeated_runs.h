// SPDX-License-Identifier: BSD-3-Clause
// Comparison of repeated runs: several runs of a baseline against several
// runs of a candidate, phase by phase. A single run against a single run
// turns noise into changes; here each phase gets the median and range of its
// main figure on each side, the change of the medians, and a Mann-Whitney U
// test of whether the candidate's runs differ from the baseline's.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tempogauge/analysis/aggregate_data_point.h"
#include "tempogauge/analysis/processed_data_struct.h"
#include "tempogauge/analysis/rank_test.h"

// The main figure of a phase for a metric: "time" the wall time in total,
// "basicmemory" the process memory's maximum (MiB), "detailedmemory" the
// committed memory's maximum (MiB).
double phaseMainFigure(const TGAggregateDataPoint& phase, std::string_view metric);

// The median, least and greatest of some values (all 0 for none).
struct SampleSummary {
  double median = 0.0;
  double min = 0.0;
  double max = 0.0;
};
SampleSummary summarizeSample(std::vector<double> values);

struct RepeatedRunsChange {
  std::string phase, grouping;
  // The main figure in each run, in the order of the runs; 0 for a run
  // without the phase (it spent nothing there).
  std::vector<double> baseline, candidate;
  SampleSummary baselineSummary, candidateSummary;
  double absolute = 0.0;  // candidate median - baseline median
  double relative = 0.0;  // percent of |baseline median|; +inf for a phase no baseline run has
  RankTestResult test;    // candidate against baseline: U counts candidate values above baseline ones
  bool inBaseline = false, inCandidate = false;  // whether any run of the side has the phase
};

// One change per phase of any run, matched by the phase's cleaned name (the
// k-th phase of a name in one run with the k-th in another), in the order of
// the first runs that have them.
std::vector<RepeatedRunsChange> compareRepeatedRuns(const std::vector<TGProcessedDataStruct>& baseline,
                                                    const std::vector<TGProcessedDataStruct>& candidate,
                                                    std::string_view metric);
