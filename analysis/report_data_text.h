// SPDX-License-Identifier: BSD-3-Clause
// Pieces shared by the report data emitters.
#pragma once

#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include "analysis/deviation_rows.h"
#include "collect/number_text.h"

namespace tg::report_data {

// Between two rows of a data array.
inline constexpr std::string_view kRowSeparator = ",\n                    ";

// The variables that the name arrays' emitter and the single-run aggregate
// emitter both declare.
inline constexpr std::string_view kSharedVariables =
    "       var PhaseLengths     = new Array();\n"
    "       var GroupingLengths  = new Array();\n"
    "       var ModelLengths     = new Array();\n"
    "       var TargetLengths    = new Array();\n"
    "       var MachineLengths   = new Array();\n"
    "       var ChartLengths     = new Array();\n"
    "       var ExpandStrLengths = new Array();\n"
    "       var ExpandStr        = [\"&nbsp;&nbsp;&nbsp;\",\"[+]\",\"[-]\"];\n"
    "       var phaseStrToShow;\n"
    "       var modelStrToShow;\n"
    "       var machineStrToShow;\n"
    "       var chartStrToShow;\n"
    "       var phaseStr;\n"
    "       var modelStr;\n"
    "       var machineStr;\n"
    "       var chartStr;\n"
    "       var targetStr;\n"
    "       var groupingStr;\n";

// A real value: five significant digits, the text of tgFormatDouble(value, 5)
// (the general format of to_chars), written straight into the output. A
// non-finite value, which a trace file may hold, is written as the script
// spells it: a stream's inf or nan would stop the page at its data.
inline void appendReal(std::string& out, double value) {
  if (std::isnan(value)) {
    out += "NaN";
    return;
  }
  if (std::isinf(value)) {
    out += value < 0 ? "-Infinity" : "Infinity";
    return;
  }
  char buffer[32];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 5);
  out.append(buffer, result.ptr);
}

inline void appendInt(std::string& out, std::int64_t value) {
  char buffer[24];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  out.append(buffer, result.ptr);
}

// ",value" forms used inside a row.
inline void appendRealField(std::string& out, double value) {
  out += ',';
  appendReal(out, value);
}
inline void appendIntField(std::string& out, std::int64_t value) {
  out += ',';
  appendInt(out, value);
}
inline void appendQuotedField(std::string& out, std::string_view text) {
  out += ",\"";
  out += text;
  out += '"';
}

// AbsDev, RelDev and the quoted band class of each pair, in column order.
inline void appendDeviations(std::string& out, const RowDeviations& deviations) {
  for (std::size_t k = 0; k < deviations.count; ++k) {
    appendRealField(out, deviations.pairs[k].absDev);
    appendRealField(out, deviations.pairs[k].relDev);
    appendQuotedField(out, deviations.pairs[k].bkgColor);
  }
}

}  // namespace tg::report_data
