// SPDX-License-Identifier: BSD-3-Clause
// Longest-common-subsequence alignment of two key sequences, in the row order
// of the classic table walk-back: a match is taken wherever the keys at the
// current corner are equal; otherwise the walk drops the RHS element when that
// keeps the common length, else the LHS element. So of two runs of unmatched
// elements at one place, the LHS ones come first in the output.
//
// The table itself (n x m counters) is never built: the walk only ever asks
// whether one step keeps the common length, and that is answered from data that
// grows with the edit distance (diagonal frontiers) or, for very different
// inputs, from bit rows kept at checkpoints.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

// One output row: indices into the two sequences (0-based; -1 when the side is
// absent) and the side marker: 0 both, 1 LHS only, 2 RHS only.
struct AlignmentStep {
  std::int32_t lhs = -1;
  std::int32_t rhs = -1;
  std::int32_t side = 0;
  bool operator==(const AlignmentStep&) const = default;
};

// Aligns two sequences of key numbers (equal numbers are equal keys).
std::vector<AlignmentStep> alignKeySequences(std::span<const std::int32_t> lhs, std::span<const std::int32_t> rhs);

// Aligns two sequences of text keys (compared as bytes).
std::vector<AlignmentStep> alignTextKeys(const std::vector<std::string>& lhs, const std::vector<std::string>& rhs);

// The two engines behind alignKeySequences, exposed so that each can be checked
// on its own. The frontier engine gives up (nullopt) once its stored frontiers
// would exceed maxFrontierEntries 32-bit entries.
std::optional<std::vector<AlignmentStep>> alignByFrontiers(std::span<const std::int32_t> lhs,
                                                           std::span<const std::int32_t> rhs,
                                                           std::size_t maxFrontierEntries);
std::vector<AlignmentStep> alignByBitRows(std::span<const std::int32_t> lhs, std::span<const std::int32_t> rhs);
