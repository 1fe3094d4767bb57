// The merged call tree: linking by phase number, shape signatures, and the
// merging of like siblings.
#include "analysis/call_tree.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <unordered_map>

#include "host/md5.h"

std::uint32_t hashID(std::int32_t value) {
  // The digest of an id never changes, and a call tree asks for the same few
  // ids again and again: each thread remembers what it has computed.
  thread_local std::unordered_map<std::int32_t, std::uint32_t> known;
  if (const auto it = known.find(value); it != known.end()) return it->second;
  thread_local tg::Md5Checksum checksum;
  checksum.addn(&value, sizeof value);
  const std::array<std::uint8_t, 16> digest = checksum.getValueAndReset();
  std::uint32_t words[4];
  std::memcpy(words, digest.data(), sizeof words);
  const std::uint32_t sum = words[0] + words[1] + words[2] + words[3];
  known.emplace(value, sum);
  return sum;
}

bool isDirectChild(const std::string& parentNum, const std::string& childNum) {
  const std::size_t lastDot = childNum.rfind('.');
  if (lastDot == std::string::npos) return false;
  if (std::count(childNum.begin(), childNum.end(), '.') != std::count(parentNum.begin(), parentNum.end(), '.') + 1)
    return false;
  return childNum.compare(0, lastDot, parentNum) == 0;
}

CallTree linkCallTreeNodes(const ProcessedPointVector& processedPoints) {
  CallTree roots;
  std::vector<CallTreeNodePtr> open;
  for (const ProcessedPointPtr& point : processedPoints) {
    if (!point) continue;
    const TGORRERYProcessedDataPoint& p = *point;
    auto node = std::make_shared<callTreeNode>();
    node->ids.push_back(p.HTMLRowNumber - 1);
    node->phaseNum = p.HTMLPhaseNumString;
    if (p.isGapRow()) {
      node->signature = hashID(p.phaseID);
      node->isGap = true;
    } else {
      node->signature = hashID(p.getGrouping()) + hashID(p.getPhaseID()) + hashID(p.getModel()) + hashID(p.getTarget());
    }
    const bool hasChildren = p.numChildren >= 1;
    if (open.empty()) {
      roots.push_back(node);
      if (hasChildren) open.push_back(node);
      continue;
    }
    // Close the nodes that are not this one's parent, keeping the last one
    // when none is.
    CallTreeNodePtr top = open.back();
    while (!isDirectChild(top->phaseNum, node->phaseNum)) {
      open.pop_back();
      if (open.empty()) break;
      top = open.back();
    }
    if (isDirectChild(top->phaseNum, node->phaseNum))
      top->children.push_back(node);
    else if (!hasChildren)
      roots.push_back(node);
    if (hasChildren) {
      if (open.empty()) roots.push_back(node);
      open.push_back(node);
    }
  }
  return roots;
}

std::uint32_t subtreeSignature(callTreeNode& node) {
  if (node.isGap) return 0;
  std::uint32_t sum = node.signature;
  std::uint32_t last = 0;
  for (const CallTreeNodePtr& child : node.children) {
    const std::uint32_t s = subtreeSignature(*child);
    if (s != last) sum += s;  // a run of like children counts once
    last = s;
  }
  node.signature = sum;
  return sum;
}

void computeRootSignatures(CallTree& roots) {
  for (const CallTreeNodePtr& root : roots)
    if (!root->isGap) subtreeSignature(*root);
}

void mergeTrees(callTreeNode& a, const callTreeNode& b) {
  // c counts every step, also the ones that moved only j; the position after
  // taking over a gap is computed from it.
  std::size_t i = 0;
  std::size_t j = 0;
  std::size_t c = 0;
  while (i < a.children.size() && j < b.children.size()) {
    const CallTreeNodePtr& left = a.children[i];
    const CallTreeNodePtr& right = b.children[j];
    if (left->signature != right->signature) {
      if (left->isGap) {
        ++i;
      } else if (right->isGap) {
        a.children.insert(a.children.begin() + static_cast<std::ptrdiff_t>(i), right);
        ++j;
        i = c + 1;
      } else {
        ++j;  // drops b's child and its rows
      }
      ++c;
    } else {
      if (left != right) {  // a gap taken over earlier may meet itself
        left->ids.insert(left->ids.end(), right->ids.begin(), right->ids.end());
        if (!left->children.empty()) mergeTrees(*left, *right);
      }
      ++i;
      ++j;
      ++c;
    }
  }
}

void mergeSiblings(CallTree& list) {
  std::map<std::uint32_t, callTreeNode*> firstSeen;
  std::size_t kept = 0;
  for (std::size_t k = 0; k < list.size(); ++k) {
    CallTreeNodePtr element = list[k];
    const auto it = firstSeen.find(element->signature);
    mergeSiblings(element->children);
    if (it != firstSeen.end()) {
      callTreeNode& first = *it->second;
      first.ids.insert(first.ids.end(), element->ids.begin(), element->ids.end());
      mergeTrees(first, *element);
    } else {
      firstSeen.emplace(element->signature, element.get());
      list[kept++] = std::move(element);
    }
  }
  list.resize(kept);
}

CallTree buildCallTree(const ProcessedPointVector& processedPoints) {
  CallTree roots = linkCallTreeNodes(processedPoints);
  computeRootSignatures(roots);
  mergeSiblings(roots);
  return roots;
}
