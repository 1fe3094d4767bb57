// The aggregate table: one entry per phase id over all executions.
#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>

#include "analysis/aggregate_data_point.h"
#include "analysis/processed_point.h"

// Element order is the container's; readers must not rely on it.
using AggregateTable = std::unordered_map<std::int32_t, std::unique_ptr<TGAggregateDataPoint>>;

// Folds the points by phase id. A "_self" gap adds its time to the self values
// of its parent's phase and gets no entry of its own; a gap with children is
// skipped.
AggregateTable buildAggregateTable(const ProcessedPointVector& processedPoints);
