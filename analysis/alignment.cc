// SPDX-License-Identifier: BSD-3-Clause
#include "analysis/alignment.h"

#include <string>

#include "analysis/alignment_keys.h"
#include "collect/constants.h"
#include "collect/paths.h"
#include "collect/tempo_gauge.h"

namespace {

template <class Element>
std::vector<comparisonRow<Element>> rowsFromSteps(const std::vector<AlignmentStep>& steps,
                                                  const std::vector<Element>& lhs, const std::vector<Element>& rhs) {
  std::vector<comparisonRow<Element>> rows;
  rows.reserve(steps.size());
  for (const auto& step : steps) {
    comparisonRow<Element> row;
    if (step.lhs >= 0) row.lhs = lhs[static_cast<std::size_t>(step.lhs)];
    if (step.rhs >= 0) row.rhs = rhs[static_cast<std::size_t>(step.rhs)];
    row.side = step.side;
    rows.push_back(std::move(row));
  }
  return rows;
}

std::vector<std::string> processedKeys(const ProcessedPointVector& points) {
  std::vector<std::string> keys;
  keys.reserve(points.size());
  for (const auto& point : points) keys.push_back(point ? point->comparisonKey() : std::string());
  return keys;
}

}  // namespace

std::vector<ProcessedComparisonRow> alignProcessedData(const ProcessedPointVector& lhsPoints,
                                                       const ProcessedPointVector& rhsPoints) {
  const auto steps = alignTextKeys(processedKeys(lhsPoints), processedKeys(rhsPoints));
  return rowsFromSteps(steps, lhsPoints, rhsPoints);
}

std::vector<AggregateComparisonRow> alignAggregates(const AggregateTable& lhsTable, const AggregateTable& rhsTable) {
  TempoGauge* const tracer = TempoGauge::instance();
  auto listOf = [](const AggregateTable& table) {
    std::vector<const TGAggregateDataPoint*> list;
    list.reserve(table.size());
    for (const auto& entry : table) list.push_back(entry.second.get());
    return list;
  };
  auto keysOf = [tracer](const std::vector<const TGAggregateDataPoint*>& list) {
    std::vector<std::string> keys;
    keys.reserve(list.size());
    for (const auto* aggregate : list)
      keys.push_back(cleanPhaseName(tracer->lookupName(tg::kPhaseKind, aggregate->phaseID), true));
    return keys;
  };
  const auto lhs = listOf(lhsTable);
  const auto rhs = listOf(rhsTable);
  return rowsFromSteps(alignTextKeys(keysOf(lhs), keysOf(rhs)), lhs, rhs);
}
