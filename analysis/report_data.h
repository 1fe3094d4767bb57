// SPDX-License-Identifier: BSD-3-Clause
// The data arrays of a report: the script text that carries all numbers and
// names into the page. Each emitter returns a string; the report drivers write
// them into the page's script element in their order. Numbers are written by
// tgFormatDouble(value, 5) (five significant digits; non-finite ones as the
// script spells them, NaN and Infinity); a value of a run that
// lacks the row is the unquoted text -99.99, which the scripts show as NA.
// Metric words are "time", "basicmemory" and "detailedmemory"; any other word
// gives the struct and rows with only the fixed columns.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/aggregate_table.h"
#include "analysis/alignment.h"
#include "analysis/call_tree.h"
#include "analysis/processed_point.h"

class TempoGauge;

// The text standing for a value of the run that lacks a row.
inline constexpr std::string_view kMissingValueText = "-99.99";

// `var Phase = [...]`, Grouping, Model, Target, Machine, Chart: the names of
// each table indexed by id (phase names cleaned, line feeds as blanks, escaped
// for a script string), then the shared variables: PhaseLengths ...
// ExpandStrLengths, ExpandStr, and the bare declarations phaseStrToShow,
// modelStrToShow, machineStrToShow, chartStrToShow, phaseStr, modelStr,
// machineStr, chartStr, targetStr, groupingStr. A null tracer gives empty
// arrays.
std::string writeNameArrays(const TempoGauge* tracer);

// Single run: `var dataStruct = makeStruct("isParent HTMLPhaseNum GapRow Phase
// Grouping Model Target Machine Chart <metric columns>")`, `var numBlankData =
// 0;` and `var procData = [new dataStruct(...), ...];`, one row per point.
std::string writeProcData(const ProcessedPointVector& points, std::string_view metric);

// Single run: the shared variables again (PhaseLengths ... groupingStr),
// aggDataView, aggSortInfo, aggDataViewCreated, ctDataViewCreated, numRows
// ('CallTree' and 'Detail' only when !aggregateOnly), `var aggDataStruct =
// makeStruct("IsParent Phase Count <metric columns>")` and `var aggData = [...]`
// in the table's iteration order.
std::string writeAggData(const AggregateTable& table, std::string_view metric, bool aggregateOnly);

// Comparison: dataStruct with LHS_, RHS_ and deviation columns (AbsDev, RelDev,
// quoted band class per pair), numBlankData and procData, one row per aligned
// row (alignProcessedData).
std::string writeDiffProcData(const std::vector<ProcessedComparisonRow>& rows, std::string_view metric);

// Comparison: aggDataView, aggSortInfo, aggDataViewCreated, ctDataViewCreated,
// numRows (all three), `var aggDataStruct = makeStruct("IsParent Phase
// LHS_Count RHS_Count CountAbsDev <metric columns>")` and aggData, one row per
// aligned row (alignAggregates).
std::string writeDiffAggData(const std::vector<AggregateComparisonRow>& rows, std::string_view metric);

// isIE, CTDataView (with 'Index' and 'Checked'), nodeArray, the function
// createNode(idx, parentIdx, ids, children), `var callTreeArray = new Array();`
// and `callTreeArray[k] = createNode(...);` per root (nested createNode calls
// for the children), then `CTDataView.AllCTChecked = false;`.
std::string writeCallTree(const CallTree& roots);

// Style rules table.dataTable td.phaseNameCell0 ... phaseNameCell<n-1>: the
// indent of the phase name per depth (n = maxDepth). n <= 0 writes nothing.
std::string writePhaseCellStyles(std::int32_t depths);
