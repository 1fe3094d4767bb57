// SPDX-License-Identifier: BSD-3-Clause
// Options and helpers shared by the subcommands.
#include "cli/command_options.h"

#include <filesystem>
#include <iostream>

#include "tempogauge/tempogauge.h"

namespace tg::cli {

void addOutFile(CLI::App& command, std::string& out) {
  command.add_option("-o,--out-file", out, "the report file to write")->type_name("FILE");
}

void addMetric(CLI::App& command, std::string& metric) {
  metric = std::string(tg::kMetricTime);
  command
      .add_option("--metric", metric, "what the report measures")
      ->type_name("M")
      ->transform(CLI::IsMember({std::string(tg::kMetricTime), std::string(tg::kMetricBasicMemory),
                                 std::string(tg::kMetricDetailedMemory)},
                                CLI::ignore_case))
      ->capture_default_str();
}

void addGrouping(CLI::App& command, std::string& grouping) {
  grouping = std::string(tg::kGlobalGrouping);
  command.add_option("--grouping", grouping, "the grouping whose phases are shown")
      ->type_name("G")
      ->capture_default_str();
}

void addTrace(CLI::App& command, const std::string& name, std::string& file, const std::string& what) {
  command.add_option(name, file, what)->required()->type_name("");
}

std::string stemOf(const std::string& file) { return std::filesystem::path(file).stem().string(); }

std::string reportNameFor(const std::string& trace, const std::string& suffix) {
  return stemOf(trace) + suffix + ".html";
}

void printWritten(const std::string& file) {
  std::cout << std::filesystem::absolute(file).lexically_normal().string() << "\n";
}

std::vector<std::string> groupingsFor(const std::string& grouping) {
  std::vector<std::string> groupings = tgGetGroupingList(grouping);
  if (groupings.empty()) groupings.push_back(grouping);
  return groupings;
}

}  // namespace tg::cli
