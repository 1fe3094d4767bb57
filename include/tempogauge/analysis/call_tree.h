// SPDX-License-Identifier: BSD-3-Clause
// The merged call tree: the nesting rebuilt from the dotted phase numbers, with
// repeated subtrees collapsed into one node that lists all their rows.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tempogauge/analysis/processed_point.h"

struct callTreeNode {
  std::vector<std::int32_t> ids;  // zero-based rows (HTMLRowNumber - 1) this node stands for
  std::vector<std::shared_ptr<callTreeNode>> children;  // in start order
  std::string phaseNum;           // HTMLPhaseNumString of the first point
  std::uint32_t signature = 0;    // shape key
  bool isGap = false;
};

using CallTreeNodePtr = std::shared_ptr<callTreeNode>;
using CallTree = std::vector<CallTreeNodePtr>;

// Sum of the four 32-bit words of the MD5 digest of the value's four bytes.
std::uint32_t hashID(std::int32_t value);

// Links, signs and merges: the roots of the merged tree.
CallTree buildCallTree(const ProcessedPointVector& processedPoints);

// The steps of buildCallTree.
CallTree linkCallTreeNodes(const ProcessedPointVector& processedPoints);
void computeRootSignatures(CallTree& roots);
std::uint32_t subtreeSignature(callTreeNode& node);
void mergeSiblings(CallTree& list);
// Merges b's children into a's: equal signatures pool their ids, a gap child of
// b that doesn't match is taken over, any other unmatched child of b is dropped.
void mergeTrees(callTreeNode& a, const callTreeNode& b);

// True when childNum has one "." more than parentNum and starts with it.
bool isDirectChild(const std::string& parentNum, const std::string& childNum);
