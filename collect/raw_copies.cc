// SPDX-License-Identifier: BSD-3-Clause
// Getting sets of raw points out of the store: deep copies for analysis, and
// shallow selections by grouping.
#include "collect/tempo_gauge.h"

namespace {

RawPointPtr copyPoint(const TGORRERYDataPoint& p) {
  switch (p.pointType) {
    case 0: return std::make_shared<TGORRERYDataPoint>(p);
    case 1: {
      const auto* cw = dynamic_cast<const TGCWGENDataPoint*>(&p);
      return cw ? std::make_shared<TGCWGENDataPoint>(*cw) : nullptr;
    }
    case 2: {
      const auto* lc = dynamic_cast<const TGLoomchartDataPoint*>(&p);
      return lc ? std::make_shared<TGLoomchartDataPoint>(*lc) : nullptr;
    }
    default: return nullptr;
  }
}

}  // namespace

std::unique_ptr<RawPointVector> TempoGauge::copyRawPoints() const {
  std::lock_guard lock(mutex_);
  if (!rawData) return nullptr;
  auto copy = std::make_unique<RawPointVector>();
  copy->reserve(rawData->size());
  for (const auto& point : *rawData) {
    RawPointPtr fresh = point ? copyPoint(*point) : nullptr;
    // A point of a kind that has no class (only a foreign file can hold one)
    // repeats the pointer before it, or null at the front.
    if (!fresh) fresh = copy->empty() ? nullptr : copy->back();
    copy->push_back(std::move(fresh));
  }
  return copy;
}

std::unique_ptr<RawPointVector> TempoGauge::rawDataForGrouping(std::string_view grouping) {
  std::lock_guard lock(mutex_);
  if (!rawData) return nullptr;
  const std::int32_t id = lookupId(tg::kGroupingKind, grouping, true);
  auto selected = std::make_unique<RawPointVector>();
  for (const auto& point : *rawData)
    if (point && point->groupingId == id) selected->push_back(point);
  return selected;
}
