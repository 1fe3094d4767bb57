// SPDX-License-Identifier: BSD-3-Clause
// The variant of a report: which metric it shows and which kind it is. It
// selects the lines of script and style text that the report carries.
#pragma once

#include <string_view>

#include "collect/constants.h"

struct ReportVariant {
  std::string_view metric = tg::kMetricTime;
  bool isComparison = false;
  bool aggregateOnly = false;
  bool hasDetailedMemStats = false;

  bool isDetailedMetric() const { return metric == tg::kMetricDetailedMemory; }
};
