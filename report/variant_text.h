// SPDX-License-Identifier: BSD-3-Clause
// Selects the lines of an embedded script or style asset that belong to one
// report variant.
//
// An asset marks variant lines with directive lines of their own:
//   //#if TERM && !TERM || TERM      (or /*#if ...*/ in style text)
//   //#else
//   //#endif
// A term is one of comparison, aggregateOnly, time, basicmemory, detailedmemory,
// detailedMemStats; `!` negates a term, `&&` binds tighter than `||`. Blocks nest.
// Directive lines and whole-line `//` comments are dropped from the output, and
// each placeholder of the substitution list is replaced in the kept lines.
#pragma once

#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "report/report_variant.h"

struct TextSubstitution {
  std::string_view placeholder;
  std::string_view value;
};

// Thrown for an asset whose directives are malformed (unknown term, unbalanced
// blocks); the unit tests run every asset through every variant.
class VariantTextError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

void appendVariantText(std::string& out, std::string_view asset, const ReportVariant& variant,
                       std::span<const TextSubstitution> substitutions = {});

// Whether a directive condition holds for the variant.
bool variantConditionHolds(std::string_view condition, const ReportVariant& variant);
