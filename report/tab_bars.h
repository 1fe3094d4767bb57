// SPDX-License-Identifier: BSD-3-Clause
// The header table with one tab bar per view of the report; one bar is
// visible at a time and its own tab is shown as selected.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct ReportTab {
  std::string_view label;
  std::string_view key;       // argument of ShowTable
  std::string_view barClass;  // class of the tab's bar
};

// The tabs of a report, left to right.
std::vector<ReportTab> reportTabs(bool isComparison, std::string_view metric, bool aggregateOnly);

std::string writeTabBars(bool isComparison, std::string_view metric, bool aggregateOnly);
std::string writeHeaderTable(bool isComparison, std::string_view metric, bool aggregateOnly);
