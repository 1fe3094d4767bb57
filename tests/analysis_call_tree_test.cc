// SPDX-License-Identifier: BSD-3-Clause
// The merged call tree: signatures, linking by number, merging of like loops.
#include <gtest/gtest.h>

#include <map>
#include <random>

#include "analysis_random_trace.h"
#include "analysis_trace_builder.h"
#include "analysis/pairing_gap.h"
#include "tempogauge/tempogauge.h"

namespace {

using tgtest::TraceBuilder;

ProcessedPointPtr numbered(const std::string& phase, const std::string& number, std::int32_t row,
                           std::int32_t children, bool gap = false) {
  auto raw = tgtest::makeRawPoint({0, "G", phase}, true, 0.0, 0.0);
  raw->flags.isGap = gap ? 1 : 0;
  auto p = makeProcessedPoint(*raw, row, 0);
  p->HTMLPhaseNumString = number;
  p->numChildren = children;
  return p;
}

CallTreeNodePtr node(std::uint32_t signature, std::vector<std::int32_t> ids, bool gap = false,
                     std::vector<CallTreeNodePtr> children = {}) {
  auto n = std::make_shared<callTreeNode>();
  n->signature = signature;
  n->ids = std::move(ids);
  n->isGap = gap;
  n->children = std::move(children);
  return n;
}

// A tree as text: each node's number (or signature), its rows, "gap" for a
// gap, its children in braces.
std::string treeText(const CallTree& list, bool signatures = false) {
  std::string out;
  for (const auto& n : list) {
    out += (out.empty() ? "" : " ") + (signatures ? std::to_string(n->signature) : n->phaseNum) + "[";
    for (std::size_t i = 0; i < n->ids.size(); ++i) out += (i ? " " : "") + std::to_string(n->ids[i]);
    out += n->isGap ? "]gap" : "]";
    if (!n->children.empty()) out += "{" + treeText(n->children, signatures) + "}";
  }
  return out;
}

TEST(CallTree, HashIsTheWordSumOfTheMd5OfTheFourBytes) {
  // Values from an independent MD5 of the little-endian bytes, digested one
  // after the other: each digest starts over.
  for (const auto& [value, hash] : {std::pair{0, 937169022u}, {1, 2078896056u}, {-1, 4086641230u},
                                     {12345, 2246446227u}, {12345, 2246446227u}})  // the last from memory
    EXPECT_EQ(hashID(value), hash) << value;
}

TEST(CallTree, NodeSignaturesAndDirectChildren) {
  TraceBuilder t;
  t.defaults = {1, "G", "Step", "Mod", "Tgt"};
  t.start("Step").stop("Step", 0.01);
  const auto r = analyzeRawPoints(t.points, {"G"}, false);
  const CallTree roots = linkCallTreeNodes(r.processedPoints);
  ASSERT_EQ(roots.size(), 1u);
  const auto& p = *r.processedPoints[0];
  EXPECT_EQ(roots[0]->signature, hashID(p.grouping) + hashID(p.phaseID) + hashID(p.getModel()) + hashID(p.getTarget()));
  EXPECT_EQ(roots[0]->ids, (std::vector<std::int32_t>{0}));
  EXPECT_EQ(roots[0]->phaseNum, "1");
  const CallTree gap = linkCallTreeNodes({numbered("Step_post", "1", 1, 0, true)});
  EXPECT_EQ(gap[0]->signature, hashID(tgGetId(tg::kPhaseKind, "Step_post")));
  EXPECT_TRUE(gap[0]->isGap);

  for (const auto& [parent, child, direct] : {std::tuple{"1.2", "1.2.3", true}, {"1.2", "1.2.3.1", false},
                                               {"1.2", "1.23", false}, {"1.2", "1.3.1", false}, {"12", "12.1", true}})
    EXPECT_EQ(isDirectChild(parent, child), direct) << parent << " " << child;
}

TEST(CallTree, PointWithoutParentOnTheStackBecomesARoot) {
  const CallTree roots = linkCallTreeNodes({
      numbered("A", "1", 1, 1), numbered("B", "1.1", 2, 0),
      numbered("C", "2.1", 3, 0),   // leaf, no "2" open
      numbered("D", "3.1", 4, 1),   // parent, no "3" open
      numbered("E", "3.1.1", 5, 0),
  });
  EXPECT_EQ(treeText(roots), "1[0]{1.1[1]} 2.1[2] 3.1[3]{3.1.1[4]}");
}

TEST(CallTree, RunsOfLikeChildrenCountOnceAndGapsNotAtAll) {
  auto withKids = [](std::vector<CallTreeNodePtr> kids) { return node(1000, {0}, false, std::move(kids)); };
  auto aab = withKids({node(5, {}), node(5, {}), node(7, {})});
  auto ab = withKids({node(5, {}), node(7, {})});
  auto agb = withKids({node(5, {}), node(99, {}, true), node(7, {})});
  auto aba = withKids({node(5, {}), node(7, {}), node(5, {})});
  EXPECT_EQ(subtreeSignature(*aab), 1012u);
  EXPECT_EQ(subtreeSignature(*ab), 1012u);
  EXPECT_EQ(subtreeSignature(*agb), 1012u);
  EXPECT_EQ(subtreeSignature(*aba), 1017u);
  EXPECT_EQ(agb->children[1]->signature, 99u);  // a gap keeps its own

  CallTree roots{node(42, {0}, true, {node(1, {})}), withKids({node(1, {})})};
  computeRootSignatures(roots);
  EXPECT_EQ(roots[0]->signature, 42u);
  EXPECT_EQ(roots[1]->signature, 1001u);
}

TEST(CallTree, LikeLoopsMergeIntoOneNodeWithAllRows) {
  TraceBuilder t;
  for (int loop = 0; loop < 2; ++loop) {
    t.start("Loop", 0.01).start("Body", 0.01).stop("Body", 0.01).start("Tail", 0.01).stop("Tail", 0.01)
        .stop("Loop", 0.01);
  }
  t.start("Other", 0.01).stop("Other", 0.01);
  const auto r = analyzeRawPoints(t.points, {"G"}, false);
  ASSERT_EQ(r.processedPoints.size(), 7u);
  EXPECT_EQ(treeText(buildCallTree(r.processedPoints)), "1[0 3]{1.1[1 4] 1.2[2 5]} 3[6]");
  EXPECT_TRUE(buildCallTree({}).empty());
}

TEST(CallTree, MergeTakesOverGapsAndDropsOtherMismatches) {
  // a: [X, Y]   b: [G(gap), X, Z, Y]
  callTreeNode a;
  a.children = {node(1, {10}), node(2, {11})};
  callTreeNode b;
  b.children = {node(9, {20}, true), node(1, {21}), node(3, {22}), node(2, {23})};
  mergeTrees(a, b);
  EXPECT_EQ(treeText(a.children, true), "9[20]gap 1[10 21] 2[11 23]");  // the gap taken over, Z dropped

  // The step counter keeps counting steps that moved only b: after two
  // dropped children of b, a gap taken over puts the walk of a past its end.
  callTreeNode c;
  c.children = {node(1, {0}), node(2, {1}), node(3, {2})};
  callTreeNode d;
  d.children = {node(7, {5}), node(8, {6}), node(9, {7}, true), node(1, {8})};
  mergeTrees(c, d);
  EXPECT_EQ(treeText(c.children, true), "9[7]gap 1[0] 2[1] 3[2]");  // 1 never compared with d's 1
}

TEST(CallTree, SiblingsMergeOnlyWithTheFirstOfTheirSignature) {
  CallTree list{node(1, {0}, false, {node(5, {1})}), node(2, {2}), node(1, {3}, false, {node(5, {4})}),
                node(1, {5})};
  mergeSiblings(list);
  EXPECT_EQ(treeText(list, true), "1[0 3 5]{5[1 4]} 2[2]");
}

// Sibling merging as plainly as it can be said: recursion, an ordered map,
// removal from the middle of the list.
void plainMergeSiblings(CallTree& list) {
  std::map<std::uint32_t, CallTreeNodePtr> firstSeen;
  for (auto it = list.begin(); it != list.end();) {
    const CallTreeNodePtr e = *it;
    const auto seen = firstSeen.find(e->signature);
    plainMergeSiblings(e->children);
    if (seen != firstSeen.end()) {
      seen->second->ids.insert(seen->second->ids.end(), e->ids.begin(), e->ids.end());
      mergeTrees(*seen->second, *e);
      it = list.erase(it);
    } else {
      firstSeen.emplace(e->signature, e);
      ++it;
    }
  }
}

TEST(CallTree, MergingAgreesWithThePlainRecursionOnRandomTraces) {
  std::mt19937 rng(99);
  int merged = 0;
  for (int n = 0; n < 600; ++n) {
    RawPointVector trace = tgtest::randomTrace(rng, 20 + n % 150);
    // Repeat the trace's shape to give the merge like siblings to work on.
    const RawPointVector again = trace;
    for (const auto& p : again) trace.push_back(cloneRawPoint(*p));
    const auto r = analyzeRawPoints(trace, {"GLOBAL"}, false);
    if (r.hasErrors) continue;
    CallTree expected = linkCallTreeNodes(r.processedPoints);
    computeRootSignatures(expected);
    plainMergeSiblings(expected);
    const CallTree actual = buildCallTree(r.processedPoints);
    SCOPED_TRACE("trace " + std::to_string(n));
    ASSERT_EQ(treeText(actual), treeText(expected));
    ASSERT_EQ(treeText(actual, true), treeText(expected, true));
    merged += actual.size() < linkCallTreeNodes(r.processedPoints).size();
    if (HasFailure()) break;
  }
  EXPECT_GT(merged, 20);
}

}  // namespace
