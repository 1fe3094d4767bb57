// SPDX-License-Identifier: BSD-3-Clause
// Groupings: the tree, its three-valued states, conflict texts and list order.
#include "collect_store_reset.h"

namespace {

class GroupingsTest : public CollectStoreTest {
 protected:
  // Each grouping as name=state, "+" when it is in the tree, its children's
  // names in braces, "?" when its name was never made; names without the
  // test's prefix.
  static std::string family(std::initializer_list<std::string> names) {
    const auto shortName = [](const std::string& name) { return name.substr(name.rfind('.') + 1); };
    std::lock_guard lock(store().mutex());
    std::string out;
    for (const auto& name : names) {
      const std::int32_t id = store().findId(tg::kGroupingKind, name);
      out += (out.empty() ? "" : " ") + shortName(name) +
             (id < 0 ? "?" : "=" + std::to_string((*store().groupingStates)[id]));
      const auto member = store().groupingChildren->find(id);
      if (member == store().groupingChildren->end()) continue;
      out += "+";
      if (!member->second || member->second->empty()) continue;
      const auto& children = *member->second;
      for (std::size_t i = 0; i < children.size(); ++i) out += (i ? "," : "{") + shortName(children[i]);
      out += "}";
    }
    return out;
  }
};

TEST_F(GroupingsTest, EvalPrmsIsGroupingZeroFromLoadTime) {
  EXPECT_EQ(CwTempoGaugingPoint::_groupingID, 0);
  EXPECT_EQ(tgGetNameStr(tg::kGroupingKind, 0), tg::kEvalPrmsGrouping);
  EXPECT_EQ(tgAddGrouping(std::string(tg::kEvalPrmsGrouping)), 0);
  EXPECT_EQ(family({std::string(tg::kEvalPrmsGrouping)}), "EvalPrms=-1+");
  EXPECT_FALSE(tgIsTracerEnabled(CwTempoGaugingPoint::_groupingID));
}

TEST_F(GroupingsTest, AddingALeafTwiceGivesOneIdAndAFamilyRefusesIt) {
  const std::string leaf = unique("Leaf"), parent = unique("Parent");
  const std::int32_t id = tgAddGrouping(leaf);
  EXPECT_GE(id, 1);
  EXPECT_EQ(tgAddGrouping(leaf), id);
  EXPECT_EQ(tgAddGrouping(parent, {unique("Child")}), "");
  EXPECT_EQ(tgAddGrouping(parent), -1);
  EXPECT_EQ(family({leaf, parent, unique("Child")}), "Leaf=-1+ Parent=-1+{Child} Child=-1+");
}

// Children register as leaves and take the state of a switched parent; a
// parent with children refuses a second list, and the tree stays.
TEST_F(GroupingsTest, ChildrenRegisterAsLeavesAndInheritASwitchedParent) {
  const std::string p = unique("P"), a = unique("A"), b = unique("B");
  const std::string on = unique("On"), onChild = unique("OnChild"), off = unique("Off"), offChild = unique("OffChild");
  ASSERT_EQ(tgAddGrouping(p), tgAddGrouping(p));  // a leaf first
  EXPECT_EQ(tgAddGrouping(p, {a}), "");
  EXPECT_EQ(tgAddGrouping(p, {b}), "Group: " + p);
  EXPECT_EQ(tgGetGroupingList(p), (std::vector<std::string>{a, p}));
  tgEnableTracer(on, true);
  EXPECT_EQ(tgAddGrouping(on, {onChild}), "");
  tgEnableTracer(off, false);
  EXPECT_EQ(tgAddGrouping(off, {offChild}), "");
  EXPECT_EQ(family({p, a, b, on, onChild, off, offChild}),
            "P=-1+{A} A=-1+ B? On=1+{OnChild} OnChild=1+ Off=0+{OffChild} OffChild=0+");
  EXPECT_TRUE(tgLogORRERYData(onChild, "p", true));
}

// A child that has children of its own stops the list half way: the ones
// before it join, the parent keeps the whole list, later ones stay unnamed.
TEST_F(GroupingsTest, SubGroupConflictStopsHalfWayWithoutUndoing) {
  const std::string p = unique("P"), first = unique("First"), busy = unique("Busy"), third = unique("Third");
  ASSERT_EQ(tgAddGrouping(busy, {unique("Grandchild")}), "");
  EXPECT_EQ(tgAddGrouping(p, {first, busy, third}), "Sub group: " + busy);
  EXPECT_EQ(family({p, first, busy, third}), "P=-1+{First,Busy,Third} First=-1+ Busy=-1+{Grandchild} Third?");
}

TEST_F(GroupingsTest, ListIsDepthFirstWithEachParentAfterItsChildren) {
  const std::string p = unique("P"), a = unique("A"), b = unique("B"), d = unique("D");
  ASSERT_EQ(tgAddGrouping(p, {a, b}), "");
  ASSERT_EQ(tgAddGrouping(a, {d}), "");
  EXPECT_EQ(tgGetGroupingList(p), (std::vector<std::string>{d, a, b, p}));
  EXPECT_EQ(tgGetGroupingList(d), (std::vector<std::string>{d}));
  // A name outside the tree gives nothing, not even itself, and stays unnamed.
  EXPECT_TRUE(tgGetGroupingList(unique("Nobody")).empty());
  EXPECT_EQ(family({unique("Nobody")}), "Nobody?");
}

// Enabling, disabling and removing take the whole family; removed groupings
// keep their ids.
TEST_F(GroupingsTest, EnablingAndRemovingTakeTheWholeFamily) {
  const std::string p = unique("P"), a = unique("A"), d = unique("D"), fresh = unique("Fresh");
  ASSERT_EQ(tgAddGrouping(p, {a}), "");
  ASSERT_EQ(tgAddGrouping(a, {d}), "");
  tgEnableTracer(p, true);
  EXPECT_EQ(family({p, a, d}), "P=1+{A} A=1+{D} D=1+");
  tgEnableTracer(a, false);
  tgEnableTracer(fresh, false);
  EXPECT_EQ(family({p, a, d, fresh}), "P=1+{A} A=0+{D} D=0+ Fresh=0+");
  tgEnableTracer(p, true);
  const std::int32_t idA = store().findId(tg::kGroupingKind, a);
  EXPECT_FALSE(tgRemoveGrouping(unique("Unknown")));
  EXPECT_TRUE(tgRemoveGrouping(p));
  EXPECT_EQ(family({p, a, d}), "P=-1 A=-1 D=-1");
  for (const auto& name : {p, a, d}) EXPECT_FALSE(tgIsTracerEnabled(name)) << name;
  EXPECT_FALSE(tgRemoveGrouping(p));
  EXPECT_EQ(tgAddGrouping(a), idA);
}

// An update replaces the children without registering them; switching the
// parent registers them. The list walks members only.
TEST_F(GroupingsTest, UpdateReplacesChildrenWithoutRegisteringThem) {
  const std::string p = unique("P"), oldChild = unique("Old"), newChild = unique("New"), unknown = unique("Unknown");
  ASSERT_EQ(tgAddGrouping(p, {oldChild}), "");
  tgEnableTracer(p, true);
  tgUpdateGrouping(p, {newChild});
  tgUpdateGrouping(unknown, {newChild});
  EXPECT_EQ(family({p, oldChild, newChild, unknown}), "P=1+{New} Old=-1 New? Unknown?");
  EXPECT_EQ(tgGetGroupingList(p), (std::vector<std::string>{p}));
  tgEnableTracer(p, true);
  EXPECT_EQ(family({p, newChild}), "P=1+{New} New=1+");
  EXPECT_EQ(tgGetGroupingList(p), (std::vector<std::string>{newChild, p}));
}

TEST_F(GroupingsTest, CyclicFamiliesEndEveryWalk) {
  const std::string a = unique("A"), b = unique("B");
  ASSERT_EQ(tgAddGrouping(a, {b}), "");
  tgUpdateGrouping(b, {a});  // b is a leaf: it takes the list as it is
  tgEnableTracer(a, true);
  EXPECT_EQ(family({a, b}), "A=1+{B} B=1+{A}");
  EXPECT_EQ(tgGetGroupingList(a), (std::vector<std::string>{b, a}));
  tgUpdateGrouping(a, {b});  // removes b, whose list leads back to a
  EXPECT_TRUE(tgRemoveGrouping(a));
  EXPECT_EQ(family({a, b}), "A=-1 B=-1");
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
