// SPDX-License-Identifier: BSD-3-Clause
// The page elements of the memory charts: a script element that tests for
// canvas support and writes the chart's elements, or the notice of a trace
// without detailed memory statistics.
#pragma once

#include <string>

// The chart of one run.
std::string writeMemChartMarkup(bool hasDetailedMemStats);
// The chart that compares two runs.
std::string writeDiffChartMarkup(bool hasDetailedMemStats);
