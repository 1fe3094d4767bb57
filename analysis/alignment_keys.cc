// SPDX-License-Identifier: BSD-3-Clause
#include "analysis/alignment_keys.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <unordered_map>

namespace {

// Frontier entries beyond which the bit-row engine takes over (32 MB).
constexpr std::size_t kMaxFrontierEntries = std::size_t{1} << 23;

AlignmentStep bothStep(std::int64_t i, std::int64_t j) {
  return {static_cast<std::int32_t>(i - 1), static_cast<std::int32_t>(j - 1), 0};
}
AlignmentStep lhsStep(std::int64_t i) { return {static_cast<std::int32_t>(i - 1), -1, 1}; }
AlignmentStep rhsStep(std::int64_t j) { return {-1, static_cast<std::int32_t>(j - 1), 2}; }

// Frontiers of the edit graph. With c the common-length table and
// d(i, j) = i + j - 2 c[i][j], cells with d <= delta on diagonal k = j - i form
// a prefix of that diagonal (d never falls along a diagonal); level delta keeps
// the end of that prefix for every diagonal k with k = delta (mod 2), or -1.
class Frontiers {
 public:
  std::int64_t get(std::int64_t delta, std::int64_t k) const {
    if (k < -delta || k > delta) return -1;
    return levels_[static_cast<std::size_t>(delta)][static_cast<std::size_t>((k + delta) / 2)];
  }
  std::size_t entries() const { return entries_; }
  // Adds level delta (the next one), all -1. Each level is its own block, so
  // that growing never copies what is stored.
  std::int32_t* addLevel(std::int64_t delta) {
    levels_.emplace_back(static_cast<std::size_t>(delta + 1), -1);
    entries_ += static_cast<std::size_t>(delta + 1);
    return levels_.back().data();
  }

 private:
  std::vector<std::vector<std::int32_t>> levels_;
  std::size_t entries_ = 0;
};

}  // namespace

std::optional<std::vector<AlignmentStep>> alignByFrontiers(std::span<const std::int32_t> lhs,
                                                           std::span<const std::int32_t> rhs,
                                                           std::size_t maxFrontierEntries) {
  const auto n = static_cast<std::int64_t>(lhs.size());
  const auto m = static_cast<std::int64_t>(rhs.size());
  Frontiers frontiers;
  std::int64_t distance = 0;
  for (std::int64_t delta = 0;; ++delta) {
    if (frontiers.entries() + static_cast<std::size_t>(delta + 1) > maxFrontierEntries) return std::nullopt;
    std::int32_t* level = frontiers.addLevel(delta);
    const std::int64_t kLow = std::max(-delta, -n);
    const std::int64_t kHigh = std::min(delta, m);
    for (std::int64_t k = kLow + ((kLow + delta) & 1); k <= kHigh; k += 2) {
      // Furthest cell on diagonal k next to a cell of the previous level (or
      // the diagonal's first cell, whose d is |k|).
      std::int64_t i = -1;
      if (-k <= delta && k <= delta) i = std::max<std::int64_t>(0, -k);
      if (delta > 0) {
        const std::int64_t left = frontiers.get(delta - 1, k - 1);
        if (left >= 0) i = std::max(i, left + k <= m ? left : m - k);
        const std::int64_t above = frontiers.get(delta - 1, k + 1);
        if (above >= 0) i = std::max(i, above + 1 <= n ? above + 1 : n);
      }
      while (i < n && i + k < m && lhs[static_cast<std::size_t>(i)] == rhs[static_cast<std::size_t>(i + k)]) ++i;
      level[(k + delta) / 2] = static_cast<std::int32_t>(i);
    }
    if (((m - n + delta) & 1) == 0 && frontiers.get(delta, m - n) == n) {
      distance = delta;
      break;
    }
  }

  // Walk back from (n, m). Along the walk delta is d(i, j): a match keeps it,
  // a step to either side lowers it by one.
  std::vector<AlignmentStep> rows;
  rows.reserve(static_cast<std::size_t>(std::max(n, m) + distance / 2 + 1));
  std::int64_t i = n;
  std::int64_t j = m;
  std::int64_t delta = distance;
  while (i > 0 || j > 0) {
    if (i > 0 && j > 0 && lhs[static_cast<std::size_t>(i - 1)] == rhs[static_cast<std::size_t>(j - 1)]) {
      rows.push_back(bothStep(i, j));
      --i;
      --j;
    } else if (j > 0 && (i == 0 || frontiers.get(delta - 1, j - i - 1) >= i)) {
      rows.push_back(rhsStep(j));
      --j;
      --delta;
    } else {
      rows.push_back(lhsStep(i));
      --i;
      --delta;
    }
  }
  std::reverse(rows.begin(), rows.end());
  return rows;
}

namespace {

// Rows of the common-length table as bit vectors: bit j-1 of row i is 1 when
// c[i][j] equals c[i][j-1]. Row 0 is all ones; each LHS element updates the row
// with the positions of its key in the RHS (Hyyro's bit-parallel recurrence).
class BitRows {
 public:
  BitRows(std::span<const std::int32_t> lhs, std::span<const std::int32_t> rhs)
      : words_((rhs.size() + 63) / 64), mask_(words_, 0) {
    std::unordered_map<std::int32_t, std::int32_t> dense;
    std::vector<std::int32_t> rhsDense(rhs.size());
    for (std::size_t j = 0; j < rhs.size(); ++j)
      rhsDense[j] = dense.try_emplace(rhs[j], static_cast<std::int32_t>(dense.size())).first->second;
    // Positions of each key in the RHS, grouped by key.
    starts_.assign(dense.size() + 1, 0);
    for (const std::int32_t key : rhsDense) ++starts_[static_cast<std::size_t>(key) + 1];
    for (std::size_t k = 1; k < starts_.size(); ++k) starts_[k] += starts_[k - 1];
    positions_.resize(rhs.size());
    std::vector<std::size_t> fill(starts_.begin(), starts_.end() - 1);
    for (std::size_t j = 0; j < rhs.size(); ++j) positions_[fill[static_cast<std::size_t>(rhsDense[j])]++] = j;
    lhsDense_.resize(lhs.size());
    for (std::size_t i = 0; i < lhs.size(); ++i) {
      const auto found = dense.find(lhs[i]);
      lhsDense_[i] = found == dense.end() ? -1 : found->second;
    }
  }

  std::size_t words() const { return words_; }

  // Turns row i-1 of the table, in place, into row i (LHS element i-1).
  void advance(std::uint64_t* row, std::size_t i) {
    const std::int32_t key = lhsDense_[i - 1];
    if (key < 0) return;  // no match anywhere: the row stays as it is
    const std::size_t from = starts_[static_cast<std::size_t>(key)];
    const std::size_t to = starts_[static_cast<std::size_t>(key) + 1];
    for (std::size_t p = from; p < to; ++p) mask_[positions_[p] >> 6] |= std::uint64_t{1} << (positions_[p] & 63);
    // Words below the first mask word keep their value; above the last one only
    // a carry can change a word, and it stops at the first word not all ones.
    const std::size_t first = positions_[from] >> 6;
    const std::size_t last = positions_[to - 1] >> 6;
    std::uint64_t carry = 0;
    for (std::size_t w = first; w < words_; ++w) {
      if (w > last && carry == 0) break;
      const std::uint64_t v = row[w];
      const std::uint64_t u = v & mask_[w];
      std::uint64_t sum = v + u;
      std::uint64_t nextCarry = sum < v ? 1 : 0;
      sum += carry;
      if (sum < carry) nextCarry = 1;
      carry = nextCarry;
      row[w] = sum | (v & ~mask_[w]);
    }
    for (std::size_t p = from; p < to; ++p) mask_[positions_[p] >> 6] = 0;
  }

 private:
  std::size_t words_;
  std::vector<std::uint64_t> mask_;
  std::vector<std::size_t> starts_;
  std::vector<std::size_t> positions_;
  std::vector<std::int32_t> lhsDense_;
};

}  // namespace

std::vector<AlignmentStep> alignByBitRows(std::span<const std::int32_t> lhs, std::span<const std::int32_t> rhs) {
  const std::size_t n = lhs.size();
  const std::size_t m = rhs.size();
  std::vector<AlignmentStep> rows;
  rows.reserve(n + m);
  BitRows bits(lhs, rhs);
  const std::size_t words = bits.words();
  // Rows 0, s, 2s, ... are kept; the rows of one block at a time are rebuilt
  // from its checkpoint while the walk passes through it.
  const std::size_t blockRows = std::max<std::size_t>(1, static_cast<std::size_t>(std::ceil(std::sqrt(double(n)))));
  const std::size_t blocks = n / blockRows + 1;
  std::vector<std::uint64_t> checkpoints(blocks * words, ~std::uint64_t{0});
  {
    std::vector<std::uint64_t> row(words, ~std::uint64_t{0});
    for (std::size_t i = 1; i <= n; ++i) {
      bits.advance(row.data(), i);
      if (i % blockRows == 0) std::copy(row.begin(), row.end(), checkpoints.begin() + (i / blockRows) * words);
    }
  }
  std::vector<std::uint64_t> block(blockRows * words);
  auto bitSet = [&](std::size_t i, std::size_t base, std::size_t position) {
    const std::uint64_t* row = block.data() + (i - base - 1) * words;
    return ((row[position >> 6] >> (position & 63)) & 1) != 0;
  };

  std::size_t i = n;
  std::size_t j = m;
  while (i > 0) {
    const std::size_t base = ((i - 1) / blockRows) * blockRows;
    std::copy_n(checkpoints.begin() + (base / blockRows) * words, words, block.begin());
    for (std::size_t r = base + 1; r <= i; ++r) {
      if (r > base + 1) std::copy_n(block.begin() + (r - base - 2) * words, words, block.begin() + (r - base - 1) * words);
      bits.advance(block.data() + (r - base - 1) * words, r);
    }
    while (i > base) {
      if (j > 0 && lhs[i - 1] == rhs[j - 1]) {
        rows.push_back(bothStep(static_cast<std::int64_t>(i), static_cast<std::int64_t>(j)));
        --i;
        --j;
      } else if (j > 0 && bitSet(i, base, j - 1)) {
        rows.push_back(rhsStep(static_cast<std::int64_t>(j)));
        --j;
      } else {
        rows.push_back(lhsStep(static_cast<std::int64_t>(i)));
        --i;
      }
    }
  }
  for (; j > 0; --j) rows.push_back(rhsStep(static_cast<std::int64_t>(j)));
  std::reverse(rows.begin(), rows.end());
  return rows;
}

std::vector<AlignmentStep> alignKeySequences(std::span<const std::int32_t> lhs, std::span<const std::int32_t> rhs) {
  if (auto rows = alignByFrontiers(lhs, rhs, kMaxFrontierEntries)) return std::move(*rows);
  return alignByBitRows(lhs, rhs);
}

std::vector<AlignmentStep> alignTextKeys(const std::vector<std::string>& lhs, const std::vector<std::string>& rhs) {
  std::unordered_map<std::string_view, std::int32_t> ids;
  ids.reserve(lhs.size() + rhs.size());
  auto number = [&ids](const std::vector<std::string>& keys) {
    std::vector<std::int32_t> out;
    out.reserve(keys.size());
    for (const auto& key : keys) out.push_back(ids.try_emplace(key, static_cast<std::int32_t>(ids.size())).first->second);
    return out;
  };
  const auto lhsIds = number(lhs);
  const auto rhsIds = number(rhs);
  return alignKeySequences(lhsIds, rhsIds);
}
