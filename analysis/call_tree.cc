// SPDX-License-Identifier: BSD-3-Clause
// The merged call tree: linking by phase number, shape signatures, and the
// merging of like siblings.
#include "analysis/call_tree.h"

#include <algorithm>
#include <cstring>
#include <array>
#include <unordered_map>

#include "host/md5.h"

namespace {

std::uint32_t md5WordSum(std::int32_t value) {
  thread_local tg::Md5Checksum checksum;
  checksum.addn(&value, sizeof value);
  const std::array<std::uint8_t, 16> digest = checksum.getValueAndReset();
  std::uint32_t words[4];
  std::memcpy(words, digest.data(), sizeof words);
  return words[0] + words[1] + words[2] + words[3];
}

}  // namespace

namespace {

// Remembers the digest of each id: a table indexed by id for the dense ids of
// the name tables (and -1), a hash table for anything else.
class IdHasher {
 public:
  std::uint32_t operator()(std::int32_t value) {
    constexpr std::int32_t kDenseLimit = 1 << 20;
    if (value < -1 || value >= kDenseLimit) {
      const auto [it, fresh] = sparse_.try_emplace(value, 0);
      if (fresh) it->second = md5WordSum(value);
      return it->second;
    }
    const auto index = static_cast<std::size_t>(value + 1);
    if (index >= dense_.size()) dense_.resize(index + 1, kUnknown);
    if (dense_[index] == kUnknown) {
      const std::uint32_t sum = md5WordSum(value);
      if (sum == kUnknown) return sum;  // can't be told from "not yet": not remembered
      dense_[index] = sum;
    }
    return dense_[index];
  }

 private:
  static constexpr std::uint32_t kUnknown = 0;
  std::vector<std::uint32_t> dense_;
  std::unordered_map<std::int32_t, std::uint32_t> sparse_;
};

}  // namespace

std::uint32_t hashID(std::int32_t value) {
  // The digest of an id never changes, and a call tree asks for the same few
  // ids again and again: each thread remembers what it has computed.
  thread_local IdHasher hasher;
  return hasher(value);
}

bool isDirectChild(const std::string& parentNum, const std::string& childNum) {
  const std::size_t lastDot = childNum.rfind('.');
  if (lastDot == std::string::npos) return false;
  if (std::count(childNum.begin(), childNum.end(), '.') != std::count(parentNum.begin(), parentNum.end(), '.') + 1)
    return false;
  return childNum.compare(0, lastDot, parentNum) == 0;
}

CallTree linkCallTreeNodes(const ProcessedPointVector& processedPoints) {
  IdHasher hash;  // the same digests as hashID, without a thread-local lookup per id
  CallTree roots;
  std::vector<CallTreeNodePtr> open;
  for (const ProcessedPointPtr& point : processedPoints) {
    if (!point) continue;
    const TGORRERYProcessedDataPoint& p = *point;
    auto node = std::make_shared<callTreeNode>();
    node->ids.push_back(p.HTMLRowNumber - 1);
    node->phaseNum = p.HTMLPhaseNumString;
    if (p.numChildren > 0) node->children.reserve(static_cast<std::size_t>(p.numChildren));
    if (p.isGapRow()) {
      node->signature = hash(p.phaseID);
      node->isGap = true;
    } else {
      node->signature = hash(p.getGrouping()) + hash(p.getPhaseID()) + hash(p.getModel()) + hash(p.getTarget());
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

namespace {

// The first node seen per signature in one list. Short lists (the usual
// case) search a small array; long ones a hash table.
class FirstBySignature {
 public:
  explicit FirstBySignature(std::size_t expected) {
    if (expected > kShort) table_.reserve(expected);
  }
  callTreeNode* find(std::uint32_t signature) const {
    if (table_.empty() && count_ <= kShort) {
      for (std::size_t i = 0; i < count_; ++i)
        if (short_[i].first == signature) return short_[i].second;
      return nullptr;
    }
    const auto it = table_.find(signature);
    return it == table_.end() ? nullptr : it->second;
  }
  void add(std::uint32_t signature, callTreeNode* node) {
    if (table_.empty() && count_ < kShort) {
      short_[count_++] = {signature, node};
      return;
    }
    if (table_.empty())
      for (std::size_t i = 0; i < count_; ++i) table_.emplace(short_[i].first, short_[i].second);
    table_.emplace(signature, node);
  }

 private:
  static constexpr std::size_t kShort = 8;
  std::array<std::pair<std::uint32_t, callTreeNode*>, kShort> short_{};
  std::size_t count_ = 0;
  std::unordered_map<std::uint32_t, callTreeNode*> table_;
};

}  // namespace

void mergeSiblings(CallTree& list) {
  // Depth-first with an explicit stack, so that deep nesting can't exhaust the
  // thread's stack. Each element's children are merged before the element is
  // merged into (or entered as) the first of its signature.
  struct Level {
    explicit Level(CallTree* l) : list(l), firstSeen(l->size()) {}
    CallTree* list;
    FirstBySignature firstSeen;
    std::size_t next = 0;   // element being handled
    std::size_t kept = 0;   // elements kept so far, compacted to the front
    callTreeNode* first = nullptr;  // the element's earlier twin, looked up before its children
    bool childrenDone = false;
  };
  std::vector<Level> levels;
  levels.emplace_back(&list);
  while (!levels.empty()) {
    Level& level = levels.back();
    if (level.next == level.list->size()) {
      level.list->resize(level.kept);
      levels.pop_back();
      continue;
    }
    CallTreeNodePtr& slot = (*level.list)[level.next];
    if (!level.childrenDone) {
      level.first = level.firstSeen.find(slot->signature);
      level.childrenDone = true;
      CallTree* children = &slot->children;
      levels.emplace_back(children);  // invalidates `level`
      continue;
    }
    CallTreeNodePtr element = slot;
    if (level.first) {
      level.first->ids.insert(level.first->ids.end(), element->ids.begin(), element->ids.end());
      mergeTrees(*level.first, *element);
    } else {
      level.firstSeen.add(element->signature, element.get());
      (*level.list)[level.kept++] = std::move(element);
    }
    level.childrenDone = false;
    ++level.next;
  }
}

CallTree buildCallTree(const ProcessedPointVector& processedPoints) {
  CallTree roots = linkCallTreeNodes(processedPoints);
  computeRootSignatures(roots);
  mergeSiblings(roots);
  return roots;
}
