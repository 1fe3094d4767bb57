// SPDX-License-Identifier: BSD-3-Clause
// The head element of every report: meta line, title and the style sheet.
#pragma once

#include <string>
#include <string_view>

class TempoGauge;

// The title text a report shows for its title argument.
std::string pageTitleText(std::string_view title);

std::string writePageHead(TempoGauge* store, int maxDepth, std::string_view title, bool isComparison);
