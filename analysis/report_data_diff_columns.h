// SPDX-License-Identifier: BSD-3-Clause
// The metric columns that end the struct declaration of a comparison table
// (aggregate or detail), with the text that closes the declaration.
#pragma once

#include <string_view>

#include "collect/constants.h"

namespace tg::report_data {

// Both comparison tables show the same basic memory columns.
inline constexpr std::string_view kDiffBasicMemoryColumns =
    "LHS_UsageDelta LHS_Usage LHS_UsagePeakDelta LHS_UsagePeak "
    "RHS_UsageDelta RHS_Usage RHS_UsagePeakDelta RHS_UsagePeak "
    "UsageDeltaAbsDev UsageDeltaRelDev UsageDeltaBkgColor UsageAbsDev UsageRelDev UsageBkgColor "
    "UsagePeakDeltaAbsDev UsagePeakDeltaRelDev UsagePeakDeltaBkgColor UsagePeakAbsDev UsagePeakRelDev "
    "UsagePeakBkgColor\");\n";

// The columns of `metric`, given the table's own time and detailed memory
// columns; an unknown metric adds none and only closes the declaration.
inline std::string_view diffMetricColumns(std::string_view metric, std::string_view timeColumns,
                                          std::string_view detailedColumns) {
  if (metric == tg::kMetricTime) return timeColumns;
  if (metric == tg::kMetricBasicMemory) return kDiffBasicMemoryColumns;
  if (metric == tg::kMetricDetailedMemory) return detailedColumns;
  return "\");\n";
}

}  // namespace tg::report_data
