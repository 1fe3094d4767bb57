// SPDX-License-Identifier: BSD-3-Clause
// What the subcommands of the tempogauge command share: their failures that
// are not message IDs, and the options that several of them take.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

namespace tg::cli {

// A subcommand that could not do what was asked, for a reason the text gives
// (exit status 1).
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// -o/--out-file FILE, the report to write.
void addOutFile(CLI::App& command, std::string& out);

// --metric M, one of time, basicmemory, detailedmemory in any case (stored in
// lower case); "time" when not given.
void addMetric(CLI::App& command, std::string& metric);

// --grouping G; "GLOBAL" (every grouping) when not given.
void addGrouping(CLI::App& command, std::string& grouping);

// A required positional argument naming a saved trace.
void addTrace(CLI::App& command, const std::string& name, std::string& file, const std::string& what);

// "run" from "some/dir/run.orf".
std::string stemOf(const std::string& file);

// "run.html" from "some/dir/run.orf" and a suffix: the default report name.
std::string reportNameFor(const std::string& trace, const std::string& suffix = "");

// Prints the absolute path of a file written, one line on standard output.
void printWritten(const std::string& file);

// The groupings a saved trace's grouping name stands for: its members when
// this process knows it as a parent, else itself (as "GLOBAL" does).
std::vector<std::string> groupingsFor(const std::string& grouping);

}  // namespace tg::cli
