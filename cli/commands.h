// SPDX-License-Identifier: BSD-3-Clause
// The subcommands of the tempogauge command. Each adds itself to the
// command's parser; its callback does the work once the command line has
// been read. Failures of the tracer travel out as exceptions (message IDs)
// for main to report, other failures as CommandError.
#pragma once

#include <CLI/CLI.hpp>

namespace tg::cli {

void addReportCommand(CLI::App& app);
void addDiffCommand(CLI::App& app);
void addDiagnoseCommand(CLI::App& app);
void addSummaryCommand(CLI::App& app);
void addDemoCommand(CLI::App& app);
void addExportCommand(CLI::App& app);

}  // namespace tg::cli
