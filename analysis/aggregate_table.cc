// SPDX-License-Identifier: BSD-3-Clause
#include "analysis/aggregate_table.h"

#include <string>
#include <unordered_map>
#include <vector>

#include "collect/constants.h"
#include "collect/tempo_gauge.h"

namespace {

constexpr std::string_view kSelfMarker = "_self";
constexpr std::int32_t kNotAsked = -2;
constexpr std::int32_t kNoFold = -1;

// For each phase id: the id of the phase whose self time it carries (its name
// with the first "_self" removed), or kNoFold. Asked of the name table once
// per id.
class SelfFolding {
 public:
  std::int32_t targetOf(std::int32_t phaseId) {
    // The phase table's ids are dense from 0; any other id (only a caller's
    // own points carry one) is remembered in a hash table, so that it can't
    // size the dense one.
    if (phaseId < 0 || phaseId >= kDenseLimit) {
      const auto [it, fresh] = sparse_.try_emplace(phaseId, kNotAsked);
      if (fresh) it->second = resolve(phaseId);
      return it->second;
    }
    const auto index = static_cast<std::size_t>(phaseId);
    if (index >= targets_.size()) targets_.resize(index + 1, kNotAsked);
    if (targets_[index] == kNotAsked) targets_[index] = resolve(phaseId);
    return targets_[index];
  }

 private:
  static std::int32_t resolve(std::int32_t phaseId) {
    std::string name = tgGetNameStr(tg::kPhaseKind, phaseId);
    if (name.size() < kSelfMarker.size()) return kNoFold;
    const std::size_t at = name.find(kSelfMarker);
    if (at == std::string::npos || at == 0) return kNoFold;
    name.erase(at, kSelfMarker.size());
    return tgGetId(tg::kPhaseKind, name);
  }

  static constexpr std::int32_t kDenseLimit = 1 << 20;
  std::vector<std::int32_t> targets_;
  std::unordered_map<std::int32_t, std::int32_t> sparse_;
};

}  // namespace

AggregateTable::iterator AggregateTable::find(std::int32_t phaseId) {
  const auto it = index_.find(phaseId);
  return it == index_.end() ? entries_.end() : entries_.begin() + static_cast<std::ptrdiff_t>(it->second);
}

AggregateTable::const_iterator AggregateTable::find(std::int32_t phaseId) const {
  const auto it = index_.find(phaseId);
  return it == index_.end() ? entries_.end() : entries_.begin() + static_cast<std::ptrdiff_t>(it->second);
}

std::pair<AggregateTable::iterator, bool> AggregateTable::try_emplace(std::int32_t phaseId) {
  const auto [it, fresh] = index_.try_emplace(phaseId, entries_.size());
  if (fresh) entries_.emplace_back(phaseId, nullptr);
  return {entries_.begin() + static_cast<std::ptrdiff_t>(it->second), fresh};
}

std::pair<AggregateTable::iterator, bool> AggregateTable::emplace(std::int32_t phaseId,
                                                                  std::unique_ptr<TGAggregateDataPoint> value) {
  auto result = try_emplace(phaseId);
  if (result.second) result.first->second = std::move(value);
  return result;
}

AggregateTable buildAggregateTable(const ProcessedPointVector& processedPoints) {
  AggregateTable table;
  SelfFolding folding;
  for (const ProcessedPointPtr& point : processedPoints) {
    if (!point) continue;
    const TGORRERYProcessedDataPoint& p = *point;
    if (p.isGapRow() && p.numChildren > 0) continue;
    if (const std::int32_t parent = folding.targetOf(p.phaseID); parent != kNoFold) {
      // Self time of the parent phase; without an entry for it, it is dropped.
      if (const auto it = table.find(parent); it != table.end()) it->second->addSelfTimes(p);
      continue;
    }
    auto [it, fresh] = table.try_emplace(p.phaseID);
    if (fresh) it->second = std::make_unique<TGAggregateDataPoint>(p.grouping, p.phaseID, p.numChildren >= 1);
    it->second->addPoint(p);
  }
  return table;
}
