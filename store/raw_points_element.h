// SPDX-License-Identifier: BSD-3-Clause
// The raw points as the level-5 array element of a saved trace's cell array,
// written straight from the points' fields, row by row: the same bytes as
// the element of rawPointsToCellArray's array, without the host arrays.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

#include "host/level5_deflate.h"
#include "tempogauge/collect/raw_point_store.h"

// Calls its argument with the fields of each point, in order.
using RawPointWalk = std::function<void(const std::function<void(const RawPointFields&)>&)>;

// Writes the element of the 1 by `count` cell array named `name` whose rows
// are the points that `walk` gives (it is walked twice: sizes, then bytes),
// each row handed to `out` as one row. A point of class -1 (a null pointer)
// is written as a default host point. False, with nothing written, when the
// element would exceed the format's 4 GiB or 2^31 - 1 elements.
bool writeRawPointsElement(tg::level5::RowDeflater& out, std::string_view name, std::size_t count,
                           const RawPointWalk& walk);

// Reads the points of a raw-data element (tag and content, as the data file
// holds it) and calls `take` with the fields of each, in order: the points
// that cellArrayToRawPoints gives for the element's decoded array, names
// interned in the same order. Rows in the form this module writes are read
// straight from the bytes; any other row goes through the host array.
void readRawPointsElement(const tg::level5::Bytes& element, bool swapped,
                          const std::function<void(const RawPointFields&)>& take);

// readRawPointsElement of a variable kept compressed (a long trace's): the
// rows are inflated through a window and checked as they are read. False,
// after points may have been taken, when the stream or a row is damaged.
bool readRawPointsStream(const tg::level5::Bytes& compressed, bool swapped,
                         const std::function<void(const RawPointFields&)>& take);
