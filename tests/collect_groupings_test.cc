// SPDX-License-Identifier: BSD-3-Clause
// Groupings: the tree, its three-valued states, conflict texts and list order.
#include "collect_store_reset.h"

namespace {

using GroupingsTest = CollectStoreTest;

std::int32_t stateOf(const std::string& name) {
  TempoGauge& s = *TempoGauge::instance();
  std::lock_guard lock(s.mutex());
  return (*s.groupingStates)[s.findId(tg::kGroupingKind, name)];
}

bool isMember(const std::string& name) {
  TempoGauge& s = *TempoGauge::instance();
  std::lock_guard lock(s.mutex());
  return s.groupingChildren->count(s.findId(tg::kGroupingKind, name)) == 1;
}

TEST_F(GroupingsTest, EvalPrmsIsGroupingZeroFromLoadTime) {
  EXPECT_EQ(CwTempoGaugingPoint::_groupingID, 0);
  EXPECT_EQ(tgGetNameStr(tg::kGroupingKind, 0), tg::kEvalPrmsGrouping);
  EXPECT_EQ(tgAddGrouping(std::string(tg::kEvalPrmsGrouping)), 0);
  EXPECT_EQ(stateOf(std::string(tg::kEvalPrmsGrouping)), -1);
  EXPECT_FALSE(tgIsTracerEnabled(CwTempoGaugingPoint::_groupingID));
}

TEST_F(GroupingsTest, AddingALeafTwiceGivesOneIdAndAFamilyRefusesIt) {
  const std::string leaf = unique("Leaf");
  const std::int32_t id = tgAddGrouping(leaf);
  EXPECT_GE(id, 1);
  EXPECT_EQ(tgAddGrouping(leaf), id);
  EXPECT_EQ(stateOf(leaf), -1);
  const std::string parent = unique("Parent");
  EXPECT_EQ(tgAddGrouping(parent, {unique("Child")}), "");
  EXPECT_EQ(tgAddGrouping(parent), -1);
}

TEST_F(GroupingsTest, ChildrenRegisterAsLeavesAndInheritASwitchedParent) {
  const std::string parent = unique("P");
  const std::string a = unique("A");
  const std::string b = unique("B");
  ASSERT_EQ(tgAddGrouping(parent), tgAddGrouping(parent));  // a leaf first
  EXPECT_EQ(tgAddGrouping(parent, {a}), "");
  EXPECT_TRUE(isMember(a));
  EXPECT_EQ(stateOf(a), -1);
  // A parent with children refuses a second list, and the tree stays.
  EXPECT_EQ(tgAddGrouping(parent, {b}), "Group: " + parent);
  EXPECT_FALSE(isMember(b));
  EXPECT_EQ(tgGetGroupingList(parent), (std::vector<std::string>{a, parent}));

  const std::string on = unique("On");
  const std::string onChild = unique("OnChild");
  tgEnableTracer(on, true);
  EXPECT_EQ(tgAddGrouping(on, {onChild}), "");
  EXPECT_EQ(stateOf(onChild), 1);
  EXPECT_TRUE(tgLogORRERYData(onChild, "p", true));

  const std::string off = unique("Off");
  const std::string offChild = unique("OffChild");
  tgEnableTracer(off, false);
  EXPECT_EQ(tgAddGrouping(off, {offChild}), "");
  EXPECT_EQ(stateOf(offChild), 0);
}

TEST_F(GroupingsTest, SubGroupConflictStopsHalfWayWithoutUndoing) {
  const std::string parent = unique("P");
  const std::string first = unique("First");
  const std::string busy = unique("Busy");
  const std::string third = unique("Third");
  ASSERT_EQ(tgAddGrouping(busy, {unique("Grandchild")}), "");
  EXPECT_EQ(tgAddGrouping(parent, {first, busy, third}), "Sub group: " + busy);
  EXPECT_TRUE(isMember(first));
  EXPECT_FALSE(isMember(third));
  EXPECT_EQ(store().findId(tg::kGroupingKind, third), -1);
  // The parent keeps its new list; the third child is named there only.
  std::lock_guard lock(store().mutex());
  const auto& children = *store().groupingChildren->at(store().findId(tg::kGroupingKind, parent));
  EXPECT_EQ(children, (std::vector<std::string>{first, busy, third}));
}

TEST_F(GroupingsTest, ListIsDepthFirstWithEachParentAfterItsChildren) {
  const std::string p = unique("P");
  const std::string a = unique("A");
  const std::string b = unique("B");
  const std::string d = unique("D");
  ASSERT_EQ(tgAddGrouping(p, {a, b}), "");
  ASSERT_EQ(tgAddGrouping(a, {d}), "");
  EXPECT_EQ(tgGetGroupingList(p), (std::vector<std::string>{d, a, b, p}));
  EXPECT_EQ(tgGetGroupingList(d), (std::vector<std::string>{d}));
  // A name outside the tree gives nothing, not even itself, and stays unnamed.
  EXPECT_TRUE(tgGetGroupingList(unique("Nobody")).empty());
  EXPECT_EQ(store().findId(tg::kGroupingKind, unique("Nobody")), -1);
}

TEST_F(GroupingsTest, EnablingAndRemovingTakeTheWholeFamily) {
  const std::string p = unique("P");
  const std::string a = unique("A");
  const std::string d = unique("D");
  ASSERT_EQ(tgAddGrouping(p, {a}), "");
  ASSERT_EQ(tgAddGrouping(a, {d}), "");
  tgEnableTracer(p, true);
  for (const auto& name : {p, a, d}) EXPECT_TRUE(tgIsTracerEnabled(name)) << name;
  tgEnableTracer(a, false);
  EXPECT_TRUE(tgIsTracerEnabled(p));
  EXPECT_FALSE(tgIsTracerEnabled(a));
  EXPECT_FALSE(tgIsTracerEnabled(d));

  const std::string fresh = unique("Fresh");
  tgEnableTracer(fresh, false);
  EXPECT_TRUE(isMember(fresh));
  EXPECT_EQ(stateOf(fresh), 0);

  // Removing takes the whole family out of the tree, and the ids stay.
  tgEnableTracer(p, true);
  const std::int32_t idA = store().findId(tg::kGroupingKind, a);
  EXPECT_FALSE(tgRemoveGrouping(unique("Unknown")));
  EXPECT_TRUE(tgRemoveGrouping(p));
  for (const auto& name : {p, a, d}) {
    EXPECT_FALSE(tgIsTracerEnabled(name)) << name;
    EXPECT_FALSE(isMember(name)) << name;
    EXPECT_EQ(stateOf(name), -1) << name;
  }
  EXPECT_FALSE(tgRemoveGrouping(p));
  EXPECT_EQ(tgAddGrouping(a), idA);
}

TEST_F(GroupingsTest, UpdateReplacesChildrenWithoutRegisteringThem) {
  const std::string p = unique("P");
  const std::string oldChild = unique("Old");
  const std::string newChild = unique("New");
  ASSERT_EQ(tgAddGrouping(p, {oldChild}), "");
  tgEnableTracer(p, true);
  tgUpdateGrouping(p, {newChild});
  EXPECT_FALSE(isMember(oldChild));
  EXPECT_FALSE(isMember(newChild));
  EXPECT_EQ(store().findId(tg::kGroupingKind, newChild), -1);
  EXPECT_EQ(stateOf(p), 1);
  // The list walks members only, so the new child is not in it yet.
  EXPECT_EQ(tgGetGroupingList(p), (std::vector<std::string>{p}));
  // Switching the parent registers its named children.
  tgEnableTracer(p, true);
  EXPECT_TRUE(isMember(newChild));
  EXPECT_EQ(tgGetGroupingList(p), (std::vector<std::string>{newChild, p}));

  const std::string unknown = unique("Unknown");
  tgUpdateGrouping(unknown, {newChild});
  EXPECT_FALSE(isMember(unknown));
  EXPECT_EQ(store().findId(tg::kGroupingKind, unknown), -1);
}

TEST_F(GroupingsTest, CyclicFamiliesEndEveryWalk) {
  const std::string a = unique("A");
  const std::string b = unique("B");
  ASSERT_EQ(tgAddGrouping(a, {b}), "");
  tgUpdateGrouping(b, {a});  // b is a leaf: it takes the list as it is
  tgEnableTracer(a, true);
  EXPECT_TRUE(tgIsTracerEnabled(a));
  EXPECT_TRUE(tgIsTracerEnabled(b));
  EXPECT_EQ(tgGetGroupingList(a), (std::vector<std::string>{b, a}));
  tgUpdateGrouping(a, {b});  // removes b, whose list leads back to a
  EXPECT_TRUE(isMember(a));
  EXPECT_TRUE(tgRemoveGrouping(a));
  EXPECT_FALSE(isMember(b));
}

TEST_F(GroupingsTest, DeepFamiliesDoNotExhaustTheStack) {
  constexpr int kDepth = 100000;
  std::vector<std::string> names;
  for (int i = 0; i <= kDepth; ++i) names.push_back(unique(std::to_string(i)));
  for (const auto& name : names) tgAddGrouping(name);
  for (int i = 0; i < kDepth; ++i) tgUpdateGrouping(names[i], {names[i + 1]});
  tgEnableTracer(names[0], true);
  EXPECT_TRUE(tgIsTracerEnabled(names[kDepth]));
  EXPECT_EQ(tgGetGroupingList(names[0]).size(), static_cast<std::size_t>(kDepth + 1));
  EXPECT_TRUE(tgRemoveGrouping(names[0]));
  EXPECT_FALSE(tgIsTracerEnabled(names[kDepth]));
}

TEST_F(GroupingsTest, StateArrayGrowsForLargeIdsAndReadsMinusOneBeyond) {
  GroupingStateArray states(20);
  EXPECT_EQ(states.size(), 20u);
  EXPECT_EQ(states[-1], -1);
  EXPECT_EQ(states[20], -1);
  EXPECT_FALSE(states.anyEnabled());
  states.set(100000, 1);
  EXPECT_EQ(states.size(), 100001u);
  EXPECT_EQ(states[100000], 1);
  EXPECT_EQ(states[99999], -1);
  EXPECT_TRUE(states.anyEnabled());
  states.set(100000, 0);
  EXPECT_FALSE(states.anyEnabled());
  for (std::size_t id : {0u, 31u, 32u, 95u, 96u, 4000u}) {
    states.set(id, 1);
    EXPECT_EQ(states[static_cast<std::int64_t>(id)], 1) << id;
  }
}

}  // namespace
