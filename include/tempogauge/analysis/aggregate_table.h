// SPDX-License-Identifier: BSD-3-Clause
// The aggregate table: one entry per phase id over all executions.
#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include "tempogauge/analysis/aggregate_data_point.h"
#include "tempogauge/analysis/processed_point.h"

// One entry per phase id, found by id and iterated in the order in which the
// phases first ran. Two runs of the same program then list their phases in
// the same order, which the comparison's alignment of the two tables relies
// on; a hash map's order depends on its size and would misalign them.
class AggregateTable {
 public:
  using Entry = std::pair<std::int32_t, std::unique_ptr<TGAggregateDataPoint>>;
  using iterator = std::vector<Entry>::iterator;
  using const_iterator = std::vector<Entry>::const_iterator;

  iterator begin() { return entries_.begin(); }
  iterator end() { return entries_.end(); }
  const_iterator begin() const { return entries_.begin(); }
  const_iterator end() const { return entries_.end(); }
  std::size_t size() const { return entries_.size(); }
  bool empty() const { return entries_.empty(); }

  iterator find(std::int32_t phaseId);
  const_iterator find(std::int32_t phaseId) const;
  // The entry of the id, appended (with a null value) when it is new.
  std::pair<iterator, bool> try_emplace(std::int32_t phaseId);
  // Sets the entry of the id unless it has one; as try_emplace.
  std::pair<iterator, bool> emplace(std::int32_t phaseId, std::unique_ptr<TGAggregateDataPoint> value);

 private:
  std::vector<Entry> entries_;
  std::unordered_map<std::int32_t, std::size_t> index_;
};

// Folds the points by phase id. A "_self" gap adds its time to the self values
// of its parent's phase and gets no entry of its own; a gap with children is
// skipped.
AggregateTable buildAggregateTable(const ProcessedPointVector& processedPoints);
