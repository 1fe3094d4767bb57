// SPDX-License-Identifier: BSD-3-Clause
// Deviation of one value pair of a comparison: absolute, relative in percent,
// and the colour band class that the report's cells take.
#pragma once

#include <string_view>

struct Deviation {
  double absDev = 0.0;
  double relDev = 0.0;
  std::string_view bkgColor;  // band class text, with its leading blank
};

// l is the LHS value, r the RHS value; a positive deviation means the RHS is
// larger. "basicmemory" keeps signs (its values are deltas); the other metrics
// compare magnitudes. Values below 0.01 are first rounded to two decimals.
Deviation computeDeviation(double lhsValue, double rhsValue, std::string_view metric);

// The band of a relative deviation: " GT50", " BETWN_45_50", ... " LTM50".
// Each bound belongs to the band below it; NaN falls into " LTM50". There is no
// band from 30 to 35: above 25 up to 35 all take " BETWN_25_30".
std::string_view bandClass(double relDev);

// Rounds to two decimals, halves away from zero.
double roundToHundredths(double value);
