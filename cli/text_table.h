// SPDX-License-Identifier: BSD-3-Clause
// A plain text table with aligned columns: text columns to the left,
// numbers to the right.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace tg::cli {

class TextTable {
 public:
  enum class Align { Left, Right };
  void addColumn(std::string heading, Align align);
  void addRow(std::vector<std::string> cells);  // one cell per column
  void print(std::ostream& out) const;

 private:
  std::vector<std::string> headings_;
  std::vector<Align> aligns_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace tg::cli
