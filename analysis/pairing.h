// SPDX-License-Identifier: BSD-3-Clause
// Phase pairing: one walk over the time-ordered raw points pairs each stop with
// the start on top of a stack of open phases, numbers the phases hierarchically
// and fills unexplained time with synthetic gap phases.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "analysis/processed_data_struct.h"
#include "collect/raw_point.h"

class TempoGauge;

// Both the start and the stop point of a phase map to its processed point.
// A stop that did not match maps to the point that carries the error.
using RawToProcessedMap = std::unordered_map<const TGORRERYDataPoint*, ProcessedPointPtr>;

// Interval above which the time between two points at one level of the call
// tree becomes a gap phase: 0.1 in single precision, compared in double.
inline constexpr double kGapThreshold = static_cast<double>(0.1f);

// How one walk runs. The selection decides which points the walk sees: a point
// that isn't selected neither appears in the result nor touches the stack.
struct PairingWalkSettings {
  std::function<bool(const TGORRERYDataPoint&)> isSelected;
  // Filled with every walked point when set; the map keeps error entries.
  RawToProcessedMap* rawToProcessed = nullptr;
  // Whether phases still open at the end set hasErrors (they get errorRow
  // either way).
  bool openAtEndIsError = true;
};

// Walks `raw` (inserting the gap points into it) and fills the walk's fields of
// `result`; processedPoints is filled in start order even when errors occur.
// Returns true when phases were left open at the end or there was nothing to walk.
bool walkRawPoints(RawPointVector& raw, const PairingWalkSettings& settings, TGProcessedDataStruct& result);

// Selections by name. The lists may hold "GLOBAL" (everything). A point whose
// phase is "Unaccounted Phase" (as known before the walk) is always selected.
std::function<bool(const TGORRERYDataPoint&)> selectByGroupings(const std::vector<std::string>& names);
std::function<bool(const TGORRERYDataPoint&)> selectByModels(const std::vector<std::string>& names);

bool walkForGroupings(RawPointVector& raw, const std::vector<std::string>& names, TGProcessedDataStruct& result);
bool walkForModels(RawPointVector& raw, const std::vector<std::string>& names, TGProcessedDataStruct& result);

// Runs the walk and builds processedPoints; with hasErrors it is empty.
// The vector keeps the gap points that the walk inserted.
TGProcessedDataStruct analyzeRawPoints(RawPointVector& raw, const std::vector<std::string>& names, bool byModel);

// With a null `raw`, pairs a deep copy of the tracer's own points (all zero,
// hasErrors clear, when the tracer has none).
TGProcessedDataStruct processedDataFor(TempoGauge* tracer, RawPointVector* raw,
                                       const std::vector<std::string>& names, bool byModel);

// "1.2.3": the first min(depth, counters) level counters joined by ".".
std::string makeHTMLPhaseNumString(const std::vector<std::int32_t>& counters, std::int32_t depth);
