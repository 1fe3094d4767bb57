// SPDX-License-Identifier: BSD-3-Clause
// The script pieces of a report that this module writes: the sort block, the
// common script library with the forms, the tab switching script and the
// aggregate, detail and call tree tables.
// Each appends only the lines of its own report variant.
#pragma once

#include <string>
#include <string_view>

// A complete script element with the quicksort block.
void writeSortScript(std::string& out);

// Opens a script element with the common library and leaves it open: the
// comparison data and the table scripts follow in the same element. Reports
// with more than the aggregate view also get the forms' functions here. The run
// labels are "none" in single-run reports.
void writeCommonScript(std::string& out, std::string_view metric, bool isComparison, std::string_view lhsName,
                       std::string_view rhsName, bool aggregateOnly);

// A complete script element with ShowTable and its helpers.
void writeTabScript(std::string& out, std::string_view metric, bool hasDetailedMemStats, bool isComparison,
                    bool aggregateOnly);

// The aggregate table's functions; closes the open script element when the
// report has the aggregate view only.
void writeAggregateScript(std::string& out, std::string_view metric, bool isComparison, bool aggregateOnly);

// The memory chart's script element: the chart of one run, or the comparison
// chart of two. Without detailed memory statistics it holds only the empty
// resize handler that the window's resize handler calls.
void writeMemChartScript(std::string& out, bool hasDetailedMemStats);
void writeDiffChartScript(std::string& out, bool hasDetailedMemStats);

// The detail table's functions; closes the script element that the common
// script opened.
void writeDetailScript(std::string& out, std::string_view metric, bool isComparison);

// A complete script element with the call tree table's functions.
void writeCallTreeScript(std::string& out, std::string_view metric);
