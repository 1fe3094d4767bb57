// SPDX-License-Identifier: BSD-3-Clause
// Host arrays as the array elements of level-5 data files.
#pragma once

#include <string_view>

#include "host/level5_elements.h"
#include "host/ox_array.h"

namespace tg::level5 {

// Appends the array element (tag and content) of `array`, named `name`, to
// `out`, in this machine's byte order. Characters are written as UTF-16,
// logicals as logical uint8, objects as structs, and a null element of a
// cell or struct as an empty double. False, with `out` as it was, when the
// array is null, of a class without a file form, or too large for the format.
bool encodeArray(Bytes& out, std::string_view name, const oxArray* array);

// The number of bytes encodeArray appends for `array` (an upper bound when
// it would fail), so that the buffer can be sized once.
std::size_t encodedSize(std::string_view name, const oxArray* array);

}  // namespace tg::level5
