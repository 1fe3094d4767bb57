// SPDX-License-Identifier: BSD-3-Clause
// Clearing raw points. The five clears differ in what they match and in what
// else they reset; none of them touches the groupings or the switches.
#include <algorithm>

#include "collect/tempo_gauge.h"
#include "tempogauge/collect.h"

namespace {

// The model and target ids of a Cogwheel or Loomchart point; null for a point
// of another class.
const TGCWGENDataPoint* asCogwheel(const RawPointPtr& point) {
  return point && point->pointType != 0 ? dynamic_cast<const TGCWGENDataPoint*>(point.get()) : nullptr;
}

}  // namespace

void TempoGauge::clearRawDataAll() {
  std::lock_guard lock(mutex_);
  if (rawData) rawData->clear();
  if (modelStatisticsTypes && !modelStatisticsTypes->empty()) modelStatisticsTypes->clear();
  clearNameTables();
}

void TempoGauge::clearNameTables() {
  std::lock_guard lock(mutex_);
  // Every table but the groupings', so grouping ids survive.
  for (const std::uint32_t kind : {tg::kPhaseKind, tg::kStatisticsTypeKind, tg::kModelKind, tg::kTargetKind,
                                   tg::kMachineKind, tg::kChartKind})
    if (NameTable* t = table(kind)) t->clear();
}

void TempoGauge::clearRawData(std::string_view grouping, std::string_view model) {
  std::lock_guard lock(mutex_);
  if (rawData) {
    const std::int32_t groupingId = findIdUnlocked(tg::kGroupingKind, grouping);
    const std::int32_t modelId = findIdUnlocked(tg::kModelKind, model);
    std::erase_if(*rawData, [&](const RawPointPtr& point) {
      const TGCWGENDataPoint* cw = asCogwheel(point);
      return cw && cw->groupingId == groupingId && cw->modelId == modelId;
    });
  }
  if (modelStatisticsTypes) modelStatisticsTypes->clear();
}

void TempoGauge::clearRawData(std::string_view grouping, std::string_view model, std::string_view target) {
  std::lock_guard lock(mutex_);
  if (!rawData) return;
  const std::int32_t groupingId = findIdUnlocked(tg::kGroupingKind, grouping);
  const std::int32_t modelId = findIdUnlocked(tg::kModelKind, model);
  const std::int32_t targetId = findIdUnlocked(tg::kTargetKind, target);
  std::erase_if(*rawData, [&](const RawPointPtr& point) {
    const TGCWGENDataPoint* cw = asCogwheel(point);
    return cw && cw->groupingId == groupingId && cw->modelId == modelId && cw->targetId == targetId;
  });
}

void TempoGauge::clearRawGroupingData(std::string_view grouping) {
  std::lock_guard lock(mutex_);
  if (!rawData) return;
  const std::int32_t groupingId = findIdUnlocked(tg::kGroupingKind, grouping);
  std::erase_if(*rawData, [&](const RawPointPtr& point) { return point && point->groupingId == groupingId; });
}

void TempoGauge::clearRawModelData(std::string_view model) {
  std::lock_guard lock(mutex_);
  if (!rawData) return;
  const std::int32_t modelId = findIdUnlocked(tg::kModelKind, model);
  std::erase_if(*rawData, [&](const RawPointPtr& point) {
    const TGCWGENDataPoint* cw = asCogwheel(point);
    return cw && cw->modelId == modelId;
  });
}

void tgClearRawData() { TempoGauge::instance()->clearRawDataAll(); }

void tgClearRawData(const std::string& grouping, const std::string& model) {
  TempoGauge::instance()->clearRawData(grouping, model);
}

void tgClearRawData(const std::string& grouping, const std::string& model, const std::string& target) {
  TempoGauge::instance()->clearRawData(grouping, model, target);
}

void tgClearRawGroupingData(const std::string& grouping) { TempoGauge::instance()->clearRawGroupingData(grouping); }

void tgClearRawModelData(const std::string& model) { TempoGauge::instance()->clearRawModelData(model); }
