// The subcommands of the tempogauge command. Each returns the exit status;
// failures of the tracer travel out as exceptions for main to report.
#pragma once

#include <string>
#include <vector>

namespace tg::cli {

int runReport(const std::vector<std::string>& args);
int runDiff(const std::vector<std::string>& args);
int runDiagnose(const std::vector<std::string>& args);
int runSummary(const std::vector<std::string>& args);
int runDemo(const std::vector<std::string>& args);

}  // namespace tg::cli
