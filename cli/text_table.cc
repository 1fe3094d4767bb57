// SPDX-License-Identifier: BSD-3-Clause
// Printing of aligned text tables.
#include "cli/text_table.h"

#include <algorithm>
#include <iomanip>

namespace tg::cli {

void TextTable::addColumn(std::string heading, Align align) {
  headings_.push_back(std::move(heading));
  aligns_.push_back(align);
}

void TextTable::addRow(std::vector<std::string> cells) {
  cells.resize(headings_.size());
  rows_.push_back(std::move(cells));
}

void TextTable::print(std::ostream& out) const {
  std::vector<std::size_t> widths;
  for (const auto& heading : headings_) widths.push_back(heading.size());
  for (const auto& row : rows_)
    for (std::size_t c = 0; c < row.size(); ++c) widths[c] = std::max(widths[c], row[c].size());

  const auto printRow = [&](const std::vector<std::string>& cells) {
    std::string line;
    for (std::size_t c = 0; c < cells.size(); ++c) {
      if (c > 0) line += "  ";
      const std::string pad(widths[c] - cells[c].size(), ' ');
      line += aligns_[c] == Align::Left ? cells[c] + pad : pad + cells[c];
    }
    while (!line.empty() && line.back() == ' ') line.pop_back();
    out << line << "\n";
  };
  printRow(headings_);
  std::vector<std::string> rule;
  for (const std::size_t width : widths) rule.emplace_back(width, '-');
  printRow(rule);
  for (const auto& row : rows_) printRow(row);
}

}  // namespace tg::cli
