// SPDX-License-Identifier: BSD-3-Clause
// Clearing raw points. The five clears differ in what they match and in what
// else they reset; none of them touches the groupings or the switches.
#include "collect/tempo_gauge.h"
#include "tempogauge/collect.h"

namespace {

// True for a Cogwheel or Loomchart point that says so by its type.
bool isCogwheel(const RawPointFields& point) { return point.pointClass >= 1 && point.pointType != 0; }

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
    rawData->eraseIf([&](const RawPointFields& point) {
      return isCogwheel(point) && point.groupingId == groupingId && point.modelId == modelId;
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
  rawData->eraseIf([&](const RawPointFields& point) {
    return isCogwheel(point) && point.groupingId == groupingId && point.modelId == modelId &&
           point.targetId == targetId;
  });
}

void TempoGauge::clearRawGroupingData(std::string_view grouping) {
  std::lock_guard lock(mutex_);
  if (!rawData) return;
  const std::int32_t groupingId = findIdUnlocked(tg::kGroupingKind, grouping);
  rawData->eraseIf(
      [&](const RawPointFields& point) { return point.pointClass >= 0 && point.groupingId == groupingId; });
}

void TempoGauge::clearRawModelData(std::string_view model) {
  std::lock_guard lock(mutex_);
  if (!rawData) return;
  const std::int32_t modelId = findIdUnlocked(tg::kModelKind, model);
  rawData->eraseIf([&](const RawPointFields& point) { return isCogwheel(point) && point.modelId == modelId; });
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
