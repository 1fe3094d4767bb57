// Tables that commands print for people and for scripts: aligned text, CSV
// (RFC 4180 quoting) or JSON (an array of objects keyed by column). Numbers
// stay numbers in CSV and JSON, at full precision; text shows them with the
// column's decimals.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <variant>
#include <vector>

#include <CLI/CLI.hpp>

namespace tg::cli {

enum class OutputFormat { Text, Csv, Json };

// --format text|csv|json in any case, "text" when not given; `given`, when
// not null, becomes true once the option is read.
void addFormat(CLI::App& command, OutputFormat& format, bool* given = nullptr);

class OutputTable {
 public:
  using Cell = std::variant<std::string, double, std::int64_t>;

  // A text column (left-aligned) when decimals < 0, else a number column.
  // `key` names the field in JSON and the heading in CSV.
  void addColumn(std::string heading, std::string key, int decimals = -1);
  void addRow(std::vector<Cell> cells);  // one cell per column
  std::size_t rowCount() const { return rows_.size(); }
  void print(std::ostream& out, OutputFormat format) const;

 private:
  struct Column {
    std::string heading, key;
    int decimals;
  };
  void printText(std::ostream& out) const;
  void printCsv(std::ostream& out) const;
  void printJson(std::ostream& out) const;

  std::vector<Column> columns_;
  std::vector<std::vector<Cell>> rows_;
};

}  // namespace tg::cli
