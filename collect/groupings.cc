// SPDX-License-Identifier: BSD-3-Clause
// Groupings: the tree of named switches, their three-valued states, and the
// table from model to statistics type.
//
// The tree is walked with explicit stacks, so a deep family can't exhaust the
// thread's stack, and a walk never enters a grouping that is already on its
// current path: a child list that names one of its own ancestors ends the walk
// there instead of recursing without end.
#include <unordered_set>

#include "collect/tempo_gauge.h"
#include "tempogauge/collect.h"

namespace {

using ChildList = std::vector<std::string>;

// One grouping on a walk's path, with the next child to visit.
struct WalkFrame {
  std::int32_t id;
  const ChildList* children;
  std::size_t next;
  std::string name;
};

}  // namespace

// ---- Members of the tree -------------------------------------------------------

void TempoGauge::ensureGroupingMembers() {
  if (!groupingChildren) {
    groupingChildren = std::make_unique<std::unordered_map<std::int32_t, std::unique_ptr<ChildList>>>(11);
    groupingChildren->max_load_factor(1.0f);
  }
  if (!groupingStates) groupingStates = std::make_unique<GroupingStateArray>(tg::kInitialGroupingStates);
  if (!switchedGroupingNames_) switchedGroupingNames_ = std::make_unique<GroupingNameIndex>();
}

std::vector<std::string>* TempoGauge::childrenOf(std::int32_t id) const {
  if (!groupingChildren) return nullptr;
  const auto it = groupingChildren->find(id);
  return it == groupingChildren->end() ? nullptr : it->second.get();
}

std::vector<std::string>& TempoGauge::makeChildrenEntry(std::int32_t id, std::int32_t state) {
  auto& slot = (*groupingChildren)[id];
  if (!slot) slot = std::make_unique<ChildList>();
  groupingStates->set(static_cast<std::size_t>(id), state);
  return *slot;
}

// ---- Operations ----------------------------------------------------------------

std::int32_t TempoGauge::addGroupingLeaf(std::string_view name) {
  std::lock_guard lock(mutex_);
  ensureGroupingMembers();
  const std::int32_t id = internId(tg::kGroupingKind, name);
  if (id < 0) return -1;
  if (const ChildList* children = childrenOf(id)) return children->empty() ? id : -1;
  makeChildrenEntry(id, -1);
  return id;
}

std::string TempoGauge::addGroupingWithChildren(std::string_view name, const std::vector<std::string>& children) {
  std::lock_guard lock(mutex_);
  ensureGroupingMembers();
  const std::int32_t id = internId(tg::kGroupingKind, name);
  ChildList* existing = id < 0 ? nullptr : childrenOf(id);
  if (id < 0 || (existing && !existing->empty())) return "Group: " + std::string(name);
  const ChildList list = children;  // the caller's vector may be one of ours
  if (existing)
    *existing = list;
  else
    makeChildrenEntry(id, -1) = list;
  for (const std::string& child : list) {
    if (addGroupingLeaf(child) == -1) return "Sub group: " + child;
    // Children added to a grouping that has been switched take its switch.
    if (const std::int32_t state = (*groupingStates)[id]; state != -1) enableGrouping(child, state != 0);
  }
  return {};
}

void TempoGauge::enableGrouping(std::string_view name, bool flag) {
  std::lock_guard lock(mutex_);
  ensureGroupingMembers();
  const std::int32_t state = flag ? 1 : 0;
  std::vector<WalkFrame> path;
  std::unordered_set<std::int32_t> onPath;
  // Switches one grouping (making it a leaf if it is not a member) and, when
  // it has children, puts it on the path so that they are switched next.
  auto visit = [&](std::string_view grouping) {
    const std::int32_t id = internId(tg::kGroupingKind, grouping);
    if (id < 0 || onPath.count(id)) return;
    switchedGroupingNames_->publish(grouping, id);
    const ChildList* children = childrenOf(id);
    if (!children) {
      makeChildrenEntry(id, state);
      return;
    }
    groupingStates->set(static_cast<std::size_t>(id), state);
    if (children->empty()) return;
    path.push_back({id, children, 0, {}});
    onPath.insert(id);
  };
  visit(name);
  while (!path.empty()) {
    WalkFrame& top = path.back();
    if (top.next == top.children->size()) {
      onPath.erase(top.id);
      path.pop_back();
      continue;
    }
    const std::string& child = (*top.children)[top.next++];
    visit(child);
  }
}

bool TempoGauge::removeGroupingById(std::int32_t id) {
  std::lock_guard lock(mutex_);
  const ChildList* rootChildren = childrenOf(id);
  if (!rootChildren) return false;
  // Children go first, so the whole family goes.
  std::vector<WalkFrame> path{{id, rootChildren, 0, {}}};
  std::unordered_set<std::int32_t> onPath{id};
  while (!path.empty()) {
    WalkFrame& top = path.back();
    if (top.next == top.children->size()) {
      const std::int32_t done = top.id;
      onPath.erase(done);
      path.pop_back();
      groupingChildren->erase(done);
      groupingStates->set(static_cast<std::size_t>(done), -1);
      continue;
    }
    const std::int32_t childId = findIdUnlocked(tg::kGroupingKind, (*top.children)[top.next++]);
    if (onPath.count(childId)) continue;
    if (const ChildList* children = childrenOf(childId)) {
      path.push_back({childId, children, 0, {}});
      onPath.insert(childId);
    }
  }
  return true;
}

void TempoGauge::updateGrouping(std::string_view name, const std::vector<std::string>& children) {
  std::lock_guard lock(mutex_);
  ensureGroupingMembers();
  const std::int32_t id = findIdUnlocked(tg::kGroupingKind, name);
  const ChildList list = children;
  if (ChildList* existing = childrenOf(id)) {
    // The old children leave the tree; the new ones are only named here and
    // join it when somebody adds or switches them.
    const ChildList old = *existing;
    for (const std::string& child : old) removeGroupingById(findIdUnlocked(tg::kGroupingKind, child));
    // A child list that led back to this grouping has removed it as well.
    if (ChildList* kept = childrenOf(id))
      *kept = list;
    else
      makeChildrenEntry(id, -1) = list;
    return;
  }
  if (id >= 0) groupingStates->set(static_cast<std::size_t>(id), -1);
}

std::vector<std::string> TempoGauge::groupingList(std::string_view name) const {
  std::lock_guard lock(mutex_);
  std::vector<std::string> result;
  const std::int32_t id = findIdUnlocked(tg::kGroupingKind, name);
  const ChildList* rootChildren = childrenOf(id);
  if (!rootChildren) return result;
  // Descendants depth first, each grouping after its children.
  std::vector<WalkFrame> path{{id, rootChildren, 0, std::string(name)}};
  std::unordered_set<std::int32_t> onPath{id};
  while (!path.empty()) {
    WalkFrame& top = path.back();
    if (top.next == top.children->size()) {
      result.push_back(std::move(top.name));
      onPath.erase(top.id);
      path.pop_back();
      continue;
    }
    const std::string& child = (*top.children)[top.next++];
    const std::int32_t childId = findIdUnlocked(tg::kGroupingKind, child);
    if (onPath.count(childId)) continue;
    if (const ChildList* children = childrenOf(childId)) {
      path.push_back({childId, children, 0, child});
      onPath.insert(childId);
    }
  }
  return result;
}

void TempoGauge::createModelStatisticsTypes() {
  modelStatisticsTypes = std::make_unique<std::unordered_map<std::string, std::string>>(16);
  modelStatisticsTypes->max_load_factor(1.0f);
}

void TempoGauge::setStatisticsTypeForModel(std::string_view model, std::string_view type) {
  std::lock_guard lock(mutex_);
  if (!modelStatisticsTypes) createModelStatisticsTypes();
  (*modelStatisticsTypes)[std::string(model)] = std::string(type);
}

// ---- Exports -------------------------------------------------------------------

std::int32_t tgAddGrouping(const std::string& grouping) { return TempoGauge::instance()->addGroupingLeaf(grouping); }

std::string tgAddGrouping(const std::string& grouping, const std::vector<std::string>& children) {
  return TempoGauge::instance()->addGroupingWithChildren(grouping, children);
}

void tgUpdateGrouping(const std::string& grouping, const std::vector<std::string>& children) {
  TempoGauge::instance()->updateGrouping(grouping, children);
}

bool tgRemoveGrouping(const std::string& grouping) {
  TempoGauge* store = TempoGauge::instance();
  std::lock_guard lock(store->mutex());
  return store->removeGroupingById(store->findId(tg::kGroupingKind, grouping));
}

std::vector<std::string> tgGetGroupingList(const std::string& grouping) {
  return TempoGauge::instance()->groupingList(grouping);
}

void tgEnableTracer(const std::string& grouping, bool enable) {
  TempoGauge::instance()->enableGrouping(grouping, enable);
}

void tgSetStatisticsTypeForModel(const std::string& model, const std::string& statisticsType) {
  TempoGauge::instance()->setStatisticsTypeForModel(model, statisticsType);
}
