// SPDX-License-Identifier: BSD-3-Clause
// Alignment of two key sequences: every engine must give exactly the rows of
// the full common-length table and its walk back.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <vector>

#include "analysis/alignment_keys.h"

namespace {

using Keys = std::vector<std::int32_t>;

// The full (n+1) x (m+1) table and its recursive walk back, kept literal.
class TableAlignment {
 public:
  TableAlignment(const Keys& lhs, const Keys& rhs)
      : lhs_(lhs), rhs_(rhs), columns_(rhs.size() + 1), table_((lhs.size() + 1) * (rhs.size() + 1), 0) {
    for (std::size_t i = 1; i <= lhs.size(); ++i)
      for (std::size_t j = 1; j <= rhs.size(); ++j)
        at(i, j) = lhs[i - 1] == rhs[j - 1] ? at(i - 1, j - 1) + 1 : std::max(at(i, j - 1), at(i - 1, j));
    walk(lhs.size(), rhs.size());
  }
  const std::vector<AlignmentStep>& rows() const { return rows_; }

 private:
  std::uint64_t& at(std::size_t i, std::size_t j) { return table_[i * columns_ + j]; }
  void walk(std::size_t i, std::size_t j) {
    if (i > 0 && j > 0 && lhs_[i - 1] == rhs_[j - 1]) {
      walk(i - 1, j - 1);
      rows_.push_back({static_cast<std::int32_t>(i - 1), static_cast<std::int32_t>(j - 1), 0});
    } else if (j > 0 && (i == 0 || at(i, j - 1) >= at(i - 1, j))) {
      walk(i, j - 1);
      rows_.push_back({-1, static_cast<std::int32_t>(j - 1), 2});
    } else if (i > 0) {
      walk(i - 1, j);
      rows_.push_back({static_cast<std::int32_t>(i - 1), -1, 1});
    }
  }
  const Keys& lhs_;
  const Keys& rhs_;
  std::size_t columns_;
  std::vector<std::uint64_t> table_;
  std::vector<AlignmentStep> rows_;
};

Keys randomKeys(std::mt19937& rng, std::size_t maxLength, int alphabet) {
  Keys keys(std::uniform_int_distribution<std::size_t>(0, maxLength)(rng));
  for (auto& key : keys) key = std::uniform_int_distribution<int>(0, alphabet - 1)(rng) * 7 - 3;
  return keys;
}

// A copy of `base` with a few elements removed, inserted or renamed.
Keys edited(std::mt19937& rng, const Keys& base, int edits, int alphabet) {
  Keys keys = base;
  for (int e = 0; e < edits; ++e) {
    const int kind = std::uniform_int_distribution<int>(0, 2)(rng);
    const std::size_t at = std::uniform_int_distribution<std::size_t>(0, keys.size())(rng);
    const std::int32_t fresh = std::uniform_int_distribution<int>(0, alphabet)(rng);
    if (kind == 0 && at < keys.size()) keys.erase(keys.begin() + static_cast<std::ptrdiff_t>(at));
    else if (kind == 1) keys.insert(keys.begin() + static_cast<std::ptrdiff_t>(at), fresh);
    else if (at < keys.size()) keys[at] = fresh;
  }
  return keys;
}

void expectAllEnginesMatchTable(const Keys& lhs, const Keys& rhs) {
  const TableAlignment table(lhs, rhs);
  const auto frontiers = alignByFrontiers(lhs, rhs, std::size_t{1} << 30);
  ASSERT_TRUE(frontiers.has_value());
  ASSERT_EQ(*frontiers, table.rows()) << "frontiers, n=" << lhs.size() << " m=" << rhs.size();
  ASSERT_EQ(alignByBitRows(lhs, rhs), table.rows()) << "bit rows, n=" << lhs.size() << " m=" << rhs.size();
  ASSERT_EQ(alignKeySequences(lhs, rhs), table.rows());
}

TEST(AlignmentKeys, MatchesTableOnRandomShortLists) {
  std::mt19937 rng(12345);
  for (int round = 0; round < 20000; ++round) {
    const int alphabet = 1 + round % 5;  // one key only up to five: many repeats and ties; empty sides too
    const Keys lhs = randomKeys(rng, 9, alphabet);
    const Keys rhs = randomKeys(rng, 9, alphabet);
    expectAllEnginesMatchTable(lhs, rhs);
  }
}

TEST(AlignmentKeys, MatchesTableOnLongerEditedListsAcrossWordBoundaries) {
  std::mt19937 rng(777);
  for (int round = 0; round < 300; ++round) {
    const int alphabet = 2 + round % 40;
    const Keys lhs = randomKeys(rng, 200, alphabet);
    const Keys rhs = round % 2 ? edited(rng, lhs, 1 + round % 12, alphabet) : randomKeys(rng, 200, alphabet);
    expectAllEnginesMatchTable(lhs, rhs);
  }
}

TEST(AlignmentKeys, TiesPutLhsRowsFirstAndMatchLateRepeats) {
  // Two unmatched runs at one place: the LHS rows come first.
  const std::vector<AlignmentStep> swapped{{0, -1, 1}, {-1, 0, 2}};
  EXPECT_EQ(alignTextKeys({"a"}, {"b"}), swapped);
  // A repeated key matches its last copy; the first stands alone.
  const std::vector<AlignmentStep> repeat{{-1, 0, 2}, {0, 1, 0}};
  EXPECT_EQ(alignTextKeys({"x"}, {"x", "x"}), repeat);
}

TEST(AlignmentKeys, FrontierEngineGivesUpBeyondItsBudget) {
  const Keys lhs{1, 2, 3, 4, 5, 6};
  const Keys rhs{7, 8, 9, 10, 11, 12};
  EXPECT_FALSE(alignByFrontiers(lhs, rhs, 10).has_value());
  EXPECT_EQ(alignKeySequences(lhs, rhs), TableAlignment(lhs, rhs).rows());
}

}  // namespace
