// SPDX-License-Identifier: GPL-3.0-or-later
// Conversion between Octave values and host arrays, used at the boundary of
// the Octave adapter only.
#pragma once

#include <octave/oct.h>

#include <optional>
#include <string_view>

#include "host/ox_array.h"

namespace tg::octave_adapter {

// A host array of the value: char, logical, double, int32, uint32, cell and
// struct keep their class; other numeric classes become double; anything
// else (objects, function handles) becomes an array of unknown class, which
// every check of the handlers refuses. Arrays of more than two dimensions
// are flattened to rows by the product of the others.
oxArrayPtr toHostArray(const octave_value& value);

// The characters of a char row or column (1xN or Nx1), as a view of the
// value's own data (valid while the value lives); nothing for any other
// value. Reads the array in place: no copy of the data or of its dimensions.
std::optional<std::string_view> charVectorText(const octave_value& value);

// The Octave value of a host array; null gives an empty matrix.
octave_value toOctaveValue(const oxArray* array);

}  // namespace tg::octave_adapter
