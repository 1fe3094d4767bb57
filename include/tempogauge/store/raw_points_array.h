// SPDX-License-Identifier: BSD-3-Clause
// The raw points as one host cell array: a 1 by N cell array whose elements
// are the points' cell rows, in the order of the vector.
#pragma once

#include "tempogauge/collect/raw_point.h"
#include "tempogauge/host/ox_array.h"

// A new 1 by N cell array of the points' rows (1 by 0 for no points).
oxArrayPtr rawPointsToCellArray(const RawPointVector& points);

// Appends one point per element of `array` to `points`, reading each row
// tolerantly: the row's length chooses the class (16 host, 18 Cogwheel,
// 20 Loomchart, any other a host point) and wrong cells give defaults. A null
// element ends the reading. A null or empty array appends nothing.
void cellArrayToRawPoints(const oxArray* array, RawPointVector& points);
