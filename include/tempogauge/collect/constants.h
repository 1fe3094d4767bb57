// SPDX-License-Identifier: BSD-3-Clause
// Fixed names and numbers that the module compares against and prints.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tg {

// Selects one of the seven name tables. The numbers are part of the calling
// convention between the module's parts (and index the report's name arrays).
enum NameKind : std::uint32_t {
  kPhaseKind = 0,
  kGroupingKind = 1,
  kStatisticsTypeKind = 2,
  kModelKind = 3,
  kTargetKind = 4,
  kMachineKind = 5,
  kChartKind = 6,
};
inline constexpr std::uint32_t kNameKindCount = 7;

inline constexpr std::string_view kUnaccountedPhase = "Unaccounted Phase";
inline constexpr std::string_view kGlobalGrouping = "GLOBAL";
inline constexpr std::string_view kStartupGrouping = "Cogwheel Startup";
inline constexpr std::string_view kNoAssociatedModel = "No Associated Model";
inline constexpr std::string_view kNoAssociatedChart = "No Associated Chart";
inline constexpr std::string_view kMetricTime = "time";
inline constexpr std::string_view kMetricBasicMemory = "basicmemory";
inline constexpr std::string_view kMetricDetailedMemory = "detailedmemory";
inline constexpr std::string_view kRowVersionTag = "1";
inline constexpr std::string_view kEvalPrmsGrouping = "EvalPrms";

// Length of the grouping state array of a new store.
inline constexpr std::size_t kInitialGroupingStates = 20;

// Bytes to mebibytes (2 to the power of -20).
inline constexpr double kBytesToMegabytes = 9.5367431640625e-07;

}  // namespace tg
