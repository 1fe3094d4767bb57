// SPDX-License-Identifier: BSD-3-Clause
// Number-to-text helpers used by the row writers and the reports.
#pragma once

#include <cstdint>
#include <string>

// Significant-digit text of a value (precision clamped to 15), as a text
// stream writes it in its default float format.
std::string tgFormatDouble(double value, int precision);
// Fixed text cut (not rounded) to the given number of decimals.
std::string tgDoubleToUString(double value, int precision);
std::string tgIntToUString(std::int32_t value);

// Stopwatch helpers.
std::int64_t tgStopwatchStart();
void tgStopwatchElapsed(std::int64_t start, double* seconds, bool print);
