// SPDX-License-Identifier: BSD-3-Clause
#include "report/variant_text.h"

#include <vector>

namespace {

std::string_view trim(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  const auto last = text.find_last_not_of(" \t\r");
  return text.substr(first, last - first + 1);
}

bool termHolds(std::string_view term, const ReportVariant& variant) {
  term = trim(term);
  bool negate = false;
  while (!term.empty() && term.front() == '!') {
    negate = !negate;
    term = trim(term.substr(1));
  }
  bool value = false;
  if (term == "comparison") {
    value = variant.isComparison;
  } else if (term == "aggregateOnly") {
    value = variant.aggregateOnly;
  } else if (term == "time" || term == "basicmemory" || term == "detailedmemory") {
    value = variant.metric == term;
  } else if (term == "detailedMemStats") {
    value = variant.hasDetailedMemStats;
  } else {
    throw VariantTextError("unknown variant term '" + std::string(term) + "'");
  }
  return value != negate;
}

bool conjunctionHolds(std::string_view conjunction, const ReportVariant& variant) {
  bool holds = true;
  while (true) {
    const auto pos = conjunction.find("&&");
    holds = termHolds(conjunction.substr(0, pos), variant) && holds;
    if (pos == std::string_view::npos) return holds;
    conjunction.remove_prefix(pos + 2);
  }
}

// A directive line: "//#word rest" or "/*#word rest*/". Returns false for any
// other line.
bool parseDirective(std::string_view line, std::string_view& word, std::string_view& rest) {
  if (line.starts_with("//#")) {
    line.remove_prefix(3);
  } else if (line.starts_with("/*#") && line.ends_with("*/")) {
    line = line.substr(3, line.size() - 5);
  } else {
    return false;
  }
  const auto space = line.find(' ');
  word = line.substr(0, space);
  rest = space == std::string_view::npos ? std::string_view{} : trim(line.substr(space + 1));
  return true;
}

void appendSubstituted(std::string& out, std::string_view line, std::span<const TextSubstitution> substitutions) {
  while (!line.empty()) {
    std::size_t best = std::string_view::npos;
    const TextSubstitution* found = nullptr;
    for (const auto& substitution : substitutions) {
      const auto pos = line.find(substitution.placeholder);
      if (pos < best) {
        best = pos;
        found = &substitution;
      }
    }
    if (found == nullptr) {
      out.append(line);
      return;
    }
    out.append(line.substr(0, best));
    out.append(found->value);
    line.remove_prefix(best + found->placeholder.size());
  }
}

// One open block: whether its current branch is kept, and whether an else has
// been seen.
struct OpenBlock {
  bool parentActive;
  bool condition;
  bool inElse;
  bool active() const { return parentActive && (inElse ? !condition : condition); }
};

}  // namespace

bool variantConditionHolds(std::string_view condition, const ReportVariant& variant) {
  condition = trim(condition);
  if (condition.empty()) throw VariantTextError("empty variant condition");
  bool holds = false;
  while (true) {
    const auto pos = condition.find("||");
    // Evaluate every alternative, so that a misspelt term fails in every variant.
    holds = conjunctionHolds(condition.substr(0, pos), variant) || holds;
    if (pos == std::string_view::npos) return holds;
    condition.remove_prefix(pos + 2);
  }
}

void appendVariantText(std::string& out, std::string_view asset, const ReportVariant& variant,
                       std::span<const TextSubstitution> substitutions) {
  std::vector<OpenBlock> blocks;
  std::size_t lineNumber = 0;
  while (!asset.empty()) {
    ++lineNumber;
    const auto end = asset.find('\n');
    const std::string_view line = asset.substr(0, end);
    asset.remove_prefix(end == std::string_view::npos ? asset.size() : end + 1);

    const bool active = blocks.empty() || blocks.back().active();
    const std::string_view content = trim(line);
    std::string_view word;
    std::string_view rest;
    if (parseDirective(content, word, rest)) {
      const auto where = " at line " + std::to_string(lineNumber);
      if (word == "if") {
        blocks.push_back({active, variantConditionHolds(rest, variant), false});
      } else if (word == "else") {
        if (blocks.empty() || blocks.back().inElse) throw VariantTextError("#else without #if" + where);
        blocks.back().inElse = true;
      } else if (word == "endif") {
        if (blocks.empty()) throw VariantTextError("#endif without #if" + where);
        blocks.pop_back();
      } else {
        throw VariantTextError("unknown directive '" + std::string(word) + "'" + where);
      }
      continue;
    }
    if (!active || content.starts_with("//")) continue;
    appendSubstituted(out, line, substitutions);
    out.push_back('\n');
  }
  if (!blocks.empty()) throw VariantTextError("#if without #endif at the end of the text");
}
