// SPDX-License-Identifier: BSD-3-Clause
// Which raw points a walk sees: by grouping names or by model names.
#include <algorithm>
#include <memory>
#include <unordered_map>

#include "analysis/pairing.h"
#include "collect/constants.h"
#include "collect/tempo_gauge.h"

namespace {

// Whether a name id is in the list, asked of the name table once per id.
class NameListMatch {
 public:
  NameListMatch(std::uint32_t kind, const std::vector<std::string>& names) : kind_(kind), names_(names) {}

  bool contains(std::int32_t id) {
    // The ids of the name tables are dense from 0; any other id (only a
    // caller's own points carry one) is remembered in a hash table, so that
    // it can't size the dense one.
    const bool dense = id >= 0 && id < kDenseLimit;
    if (dense && static_cast<std::size_t>(id) < known_.size() && known_[id] != kUnknown) return known_[id] == kYes;
    if (!dense) {
      if (const auto it = sparse_.find(id); it != sparse_.end()) return it->second;
    }
    // An id that the table doesn't hold has the empty name.
    const std::string name = tgGetNameStr(kind_, id);
    const bool found = std::find(names_.begin(), names_.end(), name) != names_.end();
    if (!dense) {
      sparse_.emplace(id, found);
    } else {
      if (static_cast<std::size_t>(id) >= known_.size()) known_.resize(static_cast<std::size_t>(id) + 1, kUnknown);
      known_[id] = found ? kYes : kNo;
    }
    return found;
  }

 private:
  static constexpr std::int8_t kUnknown = -1, kNo = 0, kYes = 1;
  static constexpr std::int32_t kDenseLimit = 1 << 20;
  std::uint32_t kind_;
  std::vector<std::string> names_;
  std::vector<std::int8_t> known_;
  std::unordered_map<std::int32_t, bool> sparse_;
};

bool listHasGlobal(const std::vector<std::string>& names) {
  return std::find(names.begin(), names.end(), tg::kGlobalGrouping) != names.end();
}

std::int32_t unaccountedPhaseId() {
  TempoGauge* store = TempoGauge::instance();
  std::lock_guard lock(store->mutex());
  return store->findId(tg::kPhaseKind, tg::kUnaccountedPhase);
}

}  // namespace

std::function<bool(const TGORRERYDataPoint&)> selectByGroupings(const std::vector<std::string>& names) {
  const bool selectAll = listHasGlobal(names);
  const std::int32_t unaccountedID = unaccountedPhaseId();
  auto match = std::make_shared<NameListMatch>(tg::kGroupingKind, names);
  return [selectAll, unaccountedID, match](const TGORRERYDataPoint& p) {
    return selectAll || match->contains(p.groupingId) || (unaccountedID >= 0 && p.phaseId == unaccountedID);
  };
}

std::function<bool(const TGORRERYDataPoint&)> selectByModels(const std::vector<std::string>& names) {
  const bool selectAll = listHasGlobal(names);
  const std::int32_t unaccountedID = unaccountedPhaseId();
  auto match = std::make_shared<NameListMatch>(tg::kModelKind, names);
  return [selectAll, unaccountedID, match](const TGORRERYDataPoint& p) {
    if (p.pointType == 0) return false;
    const auto* cw = dynamic_cast<const TGCWGENDataPoint*>(&p);
    const std::int32_t model = cw ? cw->modelId : -1;
    return match->contains(model) || (unaccountedID >= 0 && p.phaseId == unaccountedID) || selectAll;
  };
}
