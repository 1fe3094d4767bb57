// SPDX-License-Identifier: BSD-3-Clause
// Getting sets of raw points out of the store: deep copies for analysis, and
// selections by grouping.
#include "collect/tempo_gauge.h"

namespace {

// The fields of the copy of a point: a copy is made by the class that its
// type names, so a point whose class lacks that type's fields has no copy.
bool copyFields(RawPointFields& f) {
  if (f.pointClass < 0 || f.pointType < 0 || f.pointType > 2 || f.pointType > f.pointClass) return false;
  f.pointClass = f.pointType;
  if (f.pointClass < 2) f.machineId = f.chartId = -1;
  if (f.pointClass < 1) f.modelId = f.targetId = -1;
  return true;
}

// Calls take(fields, repeat) for each point of the copy; `repeat` when a
// point of a kind that has no class (only a foreign file can hold one)
// repeats the point before it, or a null point at the front.
template <class Take>
void walkCopies(const RawPointStore& store, Take&& take) {
  RawPointFields previous;
  previous.pointClass = -1;
  store.forEach([&](const RawPointFields& stored) {
    RawPointFields f = stored;
    const bool copied = copyFields(f);
    if (copied) previous = f;
    take(static_cast<const RawPointFields&>(previous), !copied);
  });
}

}  // namespace

void TempoGauge::walkRawCopies(const std::function<void(const RawPointFields&)>& take) const {
  std::lock_guard lock(mutex_);
  if (rawData) walkCopies(*rawData, [&](const RawPointFields& f, bool) { take(f); });
}

std::unique_ptr<RawPointVector> TempoGauge::copyRawPoints() const {
  std::lock_guard lock(mutex_);
  if (!rawData) return nullptr;
  auto copy = std::make_unique<RawPointVector>();
  copy->reserve(rawData->size());
  walkCopies(*rawData, [&](const RawPointFields& f, bool repeat) {
    // A repeat is the same pointer again.
    copy->push_back(repeat ? (copy->empty() ? nullptr : copy->back()) : f.toPoint(true));
  });
  return copy;
}

std::unique_ptr<RawPointVector> TempoGauge::rawDataForGrouping(std::string_view grouping) {
  std::lock_guard lock(mutex_);
  if (!rawData) return nullptr;
  const std::int32_t id = lookupId(tg::kGroupingKind, grouping, true);
  auto selected = std::make_unique<RawPointVector>();
  rawData->forEach([&](const RawPointFields& f) {
    if (f.pointClass >= 0 && f.groupingId == id) selected->push_back(f.toPoint());
  });
  return selected;
}
