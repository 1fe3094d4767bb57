// SPDX-License-Identifier: BSD-3-Clause
// The module's only console output. Goes to the host bridge's printer when a
// host is attached, else to standard output.
#pragma once

#include <functional>
#include <string_view>

void tgHostPrintf(const char* format, ...) __attribute__((format(printf, 1, 2)));
// Installs the sink that host output goes to (null restores standard output).
void tgSetHostPrinter(std::function<void(std::string_view)> printer);
