// SPDX-License-Identifier: BSD-3-Clause
// The logging path: the gate, the points and their samples.
//
// The gate (switch test and grouping state) reads only atomics and takes no
// lock, so a log call whose grouping is off costs a few loads. A call that
// passes the gate takes the store's mutex to intern names, sample and push,
// so points from several threads never interleave half-built and their order
// in rawData is the order of their stamps. A point is packed straight into
// the store: the path allocates nothing but, now and then, a chunk of it.
#include <memory>
#include <string>

#include "collect/address_space_scanner.h"
#include "collect/log_entry.h"
#include "collect/tempo_gauge.h"
#include "host/clock.h"
#include "host/process_memory.h"
#include "tempogauge/collect.h"

// ---- Gate ---------------------------------------------------------------------

std::int32_t TempoGauge::enabledGroupingId(std::string_view groupingName) const {
  // Only groupings that have been switched can be on, and every switched
  // grouping is in the lock-free index under its id; while nothing at all is
  // on, no name needs looking up.
  if (!groupingStates || !groupingStates->anyEnabled() || !switchedGroupingNames_) return -1;
  const std::int32_t id = switchedGroupingNames_->find(groupingName);
  return isGroupingEnabled(id) ? id : -1;
}

// ---- Points -------------------------------------------------------------------

bool TempoGauge::logPoint(std::string_view grouping, std::string_view phase, bool start) {
  return logPoint(findId(tg::kGroupingKind, grouping), phase, start);
}

bool TempoGauge::logPoint(std::int32_t groupingId, std::string_view phase, bool start) {
  try {
    RawPointFields point;
    point.groupingId = groupingId;
    std::lock_guard lock(mutex_);
    return storePoint(point, phase, start);
  } catch (...) {
    return false;
  }
}

bool TempoGauge::logPoint(std::string_view grouping, std::string_view model, std::string_view target,
                          std::string_view phase, bool start) {
  return logPoint(findId(tg::kGroupingKind, grouping), model, target, phase, start);
}

bool TempoGauge::logPoint(std::int32_t groupingId, std::string_view model, std::string_view target,
                          std::string_view phase, bool start) {
  try {
    RawPointFields point;
    point.pointClass = point.pointType = 1;
    point.groupingId = groupingId;
    std::lock_guard lock(mutex_);
    point.modelId = internId(tg::kModelKind, model);
    point.targetId = internId(tg::kTargetKind, target);
    point.statisticsTypeId = statisticsTypeIdForModel(model);
    return storePoint(point, phase, start);
  } catch (...) {
    return false;
  }
}

bool TempoGauge::logPoint(std::string_view grouping, std::string_view model, std::string_view target,
                          std::string_view machine, std::string_view chart, std::string_view phase,
                          bool start) {
  return logPoint(findId(tg::kGroupingKind, grouping), model, target, machine, chart, phase, start);
}

bool TempoGauge::logPoint(std::int32_t groupingId, std::string_view model, std::string_view target,
                          std::string_view machine, std::string_view chart, std::string_view phase,
                          bool start) {
  try {
    RawPointFields point;
    point.pointClass = point.pointType = 2;
    point.groupingId = groupingId;
    std::lock_guard lock(mutex_);
    point.modelId = internId(tg::kModelKind, model);
    point.targetId = internId(tg::kTargetKind, target);
    point.machineId = internId(tg::kMachineKind, machine);
    point.chartId = internId(tg::kChartKind, chart);
    point.statisticsTypeId = statisticsTypeIdForModel(model);
    return storePoint(point, phase, start);
  } catch (...) {
    return false;
  }
}

std::int32_t TempoGauge::statisticsTypeIdForModel(std::string_view model) {
  if (!modelStatisticsTypes) createModelStatisticsTypes();
  // A model without an entry gets one with the empty type, which is then
  // interned like any other type name.
  const std::string& type = (*modelStatisticsTypes)[std::string(model)];
  return internId(tg::kStatisticsTypeKind, type);
}

// The steps every point class shares, under the mutex: phase, start bit,
// samples, push.
bool TempoGauge::storePoint(RawPointFields& point, std::string_view phase, bool start) {
  point.phaseId = internId(tg::kPhaseKind, phase);
  point.isStart = start;
  sample(point);
  if (!rawData) return false;
  rawData->append(point);
  return true;
}

// ---- Samples ------------------------------------------------------------------

void TempoGauge::sampleInto(TGORRERYDataPoint& point) {
  RawPointFields fields;
  {
    std::lock_guard lock(mutex_);
    sample(fields);
  }
  if (fields.detailedState == RawPointFields::Detailed::kFigures) {
    const auto& d = fields.detailed;
    point.detailedMemStats = std::make_shared<tg::DetailedMemStats>(d[0], d[1], d[2], d[3], d[4]);
  }
  if (fields.hasBasic)
    point.basicMemStats = std::make_shared<tg::BasicMemStats>(fields.basic[0], fields.basic[1], fields.basic[2]);
  point.wallTime = fields.wallTime;
  point.cpuTime = fields.cpuTime;
}

void TempoGauge::sample(RawPointFields& point) {
  // Memory first, so that the cost of reading it falls before the stamps.
  point.hasBasic = true;  // a failed read leaves the zero-filled record
  point.basic = {};
  point.detailedState = RawPointFields::Detailed::kZero;
  if (detailedMemStatsEnabled.load(std::memory_order_relaxed) && memoryScanner) {
    memoryScanner->scan();
    point.detailed = {static_cast<double>(memoryScanner->freeBytes), static_cast<double>(memoryScanner->reservedBytes),
                      static_cast<double>(memoryScanner->commitBytes), static_cast<double>(memoryScanner->moduleBytes),
                      static_cast<double>(memoryScanner->nonProcessBytes)};
    point.detailedState = RawPointFields::Detailed::kFigures;
  }
  if (tg::host::ProcessCounters counters; tg::host::readProcessCounters(counters))
    point.basic = {static_cast<double>(counters.residentBytes), static_cast<double>(counters.peakResidentBytes),
                   static_cast<double>(counters.virtualBytes)};
  point.wallTime = huRealtime();
  point.cpuTime = huCPUtime();
}

// ---- Exports ------------------------------------------------------------------
//
// Each export keeps its own copy of the store's address; the store never
// moves or dies.

namespace {

// Logs through `log(store, groupingId)` when logging is on for the grouping
// named `grouping`. When the gate passes by the grouping's own switch, it has
// found the id already; only global logging needs the name looked up.
template <typename Log>
bool logForGroupingNamed(TempoGauge* store, std::string_view grouping, Log log) {
  if (store->globalLoggingEnabled.load(std::memory_order_relaxed))
    return log(store->findId(tg::kGroupingKind, grouping));
  const std::int32_t groupingId = store->enabledGroupingId(grouping);
  return groupingId >= 0 && log(groupingId);
}

// Logs through `log()` when logging is on for the grouping `groupingId`.
template <typename Log>
bool logForGroupingId(const TempoGauge* store, std::int32_t groupingId, Log log) {
  if (!store->globalLoggingEnabled.load(std::memory_order_relaxed) && !store->isGroupingEnabled(groupingId))
    return false;
  return log();
}

}  // namespace

namespace tg::collect {

bool logHostData(std::string_view grouping, std::string_view phase, bool start) {
  static TempoGauge* const store = TempoGauge::instance();
  return logForGroupingNamed(store, grouping, [&](std::int32_t id) { return store->logPoint(id, phase, start); });
}

bool logStartupData(std::string_view phase, bool start) { return logHostData(tg::kStartupGrouping, phase, start); }

bool logCogwheelData(std::string_view grouping, std::string_view model, std::string_view target,
                     std::string_view phase, bool start) {
  static TempoGauge* const store = TempoGauge::instance();
  return logForGroupingNamed(
      store, grouping, [&](std::int32_t id) { return store->logPoint(id, model, target, phase, start); });
}

bool logLoomchartData(std::string_view grouping, std::string_view model, std::string_view target,
                      std::string_view machine, std::string_view chart, std::string_view phase, bool start) {
  static TempoGauge* const store = TempoGauge::instance();
  return logForGroupingNamed(store, grouping, [&](std::int32_t id) {
    return store->logPoint(id, model, target, machine, chart, phase, start);
  });
}

}  // namespace tg::collect

bool tgLogORRERYData(const std::string& grouping, const std::string& phase, bool start) {
  return tg::collect::logHostData(grouping, phase, start);
}

bool tgLogORRERYData(std::int32_t groupingId, const std::string& phase, bool start) {
  static TempoGauge* const store = TempoGauge::instance();
  return logForGroupingId(store, groupingId, [&] { return store->logPoint(groupingId, phase, start); });
}

bool tgLogCWStartupData(const std::string& phase, bool start) { return tg::collect::logStartupData(phase, start); }

bool tgLogCogwheelData(const std::string& grouping, const std::string& model, const std::string& target,
                       const std::string& phase, bool start) {
  return tg::collect::logCogwheelData(grouping, model, target, phase, start);
}

bool tgLogCogwheelData(std::int32_t groupingId, const std::string& model, const std::string& target,
                       const std::string& phase, bool start) {
  static TempoGauge* const store = TempoGauge::instance();
  return logForGroupingId(store, groupingId,
                          [&] { return store->logPoint(groupingId, model, target, phase, start); });
}

bool tgLogLoomchartData(const std::string& grouping, const std::string& model, const std::string& target,
                        const std::string& machine, const std::string& chart, const std::string& phase,
                        bool start) {
  return tg::collect::logLoomchartData(grouping, model, target, machine, chart, phase, start);
}

bool tgLogLoomchartData(std::int32_t groupingId, const std::string& model, const std::string& target,
                        const std::string& machine, const std::string& chart, const std::string& phase,
                        bool start) {
  static TempoGauge* const store = TempoGauge::instance();
  return logForGroupingId(store, groupingId, [&] {
    return store->logPoint(groupingId, model, target, machine, chart, phase, start);
  });
}

// ---- Switches -----------------------------------------------------------------

bool tgIsTracerEnabled(const std::string& grouping) {
  const TempoGauge* store = TempoGauge::instance();
  return store->globalLoggingEnabled.load() || store->isGroupingEnabled(std::string_view(grouping));
}

bool tgIsTracerEnabled(std::int32_t groupingId) {
  const TempoGauge* store = TempoGauge::instance();
  return store->globalLoggingEnabled.load() || store->isGroupingEnabled(groupingId);
}

bool tgEnableGlobalLogging(bool flag) {
  TempoGauge::instance()->globalLoggingEnabled.store(flag);
  return flag;
}

bool tgEnableDetailedMemStats(bool flag) {
  TempoGauge::instance()->detailedMemStatsEnabled.store(flag);
  return flag;
}
