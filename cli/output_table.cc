#include "cli/output_table.h"

#include <cmath>
#include <cstdio>
#include <stdexcept>

#include <nlohmann/json.hpp>

#include "cli/terminal_text.h"
#include "cli/text_table.h"

namespace tg::cli {
namespace {

std::string formatted(double value, int decimals) {
  if (std::isnan(value)) return "n/a";
  if (std::isinf(value)) return value > 0 ? "new" : "gone";
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value);
  return buffer;
}

// Shortest text that reads back as the same double.
std::string exact(double value) {
  if (!std::isfinite(value)) return std::isnan(value) ? "" : (value > 0 ? "inf" : "-inf");
  char buffer[64];
  for (int precision = 15; precision <= 17; ++precision) {
    std::snprintf(buffer, sizeof buffer, "%.*g", precision, value);
    if (std::strtod(buffer, nullptr) == value) break;
  }
  return buffer;
}

std::string csvField(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + '"';
}

}  // namespace

void addFormat(CLI::App& command, OutputFormat& format, bool* given) {
  format = OutputFormat::Text;
  command
      .add_option_function<std::string>(
          "--format",
          [&format, given](const std::string& name) {
            format = name == "csv" ? OutputFormat::Csv : name == "json" ? OutputFormat::Json : OutputFormat::Text;
            if (given) *given = true;
          },
          "how to print the table: text, csv or json")
      ->type_name("F")
      ->transform(CLI::IsMember({"text", "csv", "json"}, CLI::ignore_case))
      ->default_str("text");
}

void OutputTable::addColumn(std::string heading, std::string key, int decimals) {
  columns_.push_back({std::move(heading), std::move(key), decimals});
}

void OutputTable::addRow(std::vector<Cell> cells) {
  if (cells.size() != columns_.size()) throw std::logic_error("a table row needs one cell per column");
  rows_.push_back(std::move(cells));
}

void OutputTable::print(std::ostream& out, OutputFormat format) const {
  switch (format) {
    case OutputFormat::Text: return printText(out);
    case OutputFormat::Csv: return printCsv(out);
    case OutputFormat::Json: return printJson(out);
  }
}

void OutputTable::printText(std::ostream& out) const {
  TextTable text;
  for (const Column& c : columns_)
    text.addColumn(c.heading, c.decimals < 0 ? TextTable::Align::Left : TextTable::Align::Right);
  for (const auto& row : rows_) {
    std::vector<std::string> cells;
    for (std::size_t i = 0; i < row.size(); ++i) {
      const Cell& cell = row[i];
      if (const auto* s = std::get_if<std::string>(&cell)) cells.push_back(escapeControls(*s));
      else if (const auto* d = std::get_if<double>(&cell)) cells.push_back(formatted(*d, columns_[i].decimals));
      else cells.push_back(std::to_string(std::get<std::int64_t>(cell)));
    }
    text.addRow(std::move(cells));
  }
  text.print(out);
}

void OutputTable::printCsv(std::ostream& out) const {
  auto line = [&](auto field) {
    for (std::size_t i = 0; i < columns_.size(); ++i) out << (i ? "," : "") << field(i);
    out << "\r\n";
  };
  line([&](std::size_t i) { return csvField(columns_[i].key); });
  for (const auto& row : rows_) {
    line([&](std::size_t i) {
      const Cell& cell = row[i];
      if (const auto* s = std::get_if<std::string>(&cell)) return csvField(*s);
      if (const auto* d = std::get_if<double>(&cell)) return exact(*d);
      return std::to_string(std::get<std::int64_t>(cell));
    });
  }
}

void OutputTable::printJson(std::ostream& out) const {
  nlohmann::ordered_json array = nlohmann::ordered_json::array();
  for (const auto& row : rows_) {
    nlohmann::ordered_json object = nlohmann::ordered_json::object();
    for (std::size_t i = 0; i < row.size(); ++i) {
      const Cell& cell = row[i];
      auto& field = object[columns_[i].key];
      if (const auto* s = std::get_if<std::string>(&cell)) field = *s;
      else if (const auto* d = std::get_if<double>(&cell)) field = std::isfinite(*d) ? nlohmann::ordered_json(*d) : nullptr;
      else field = std::get<std::int64_t>(cell);
    }
    array.push_back(std::move(object));
  }
  out << array.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << "\n";
}

}  // namespace tg::cli
