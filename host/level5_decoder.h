// SPDX-License-Identifier: BSD-3-Clause
// Host arrays from the array elements of level-5 data files.
#pragma once

#include "host/level5_elements.h"
#include "host/ox_array.h"

namespace tg::level5 {

// The host array of the array whose miMATRIX content is [at, end). Integer
// classes other than int32 and uint32 become int32 when they fit (8 and 16
// bits) and double otherwise; single becomes double; complex values keep
// their real part; characters become UTF-8 text. Null for classes without a
// host form (sparse, function handles, opaque) and for damaged content. An
// empty element is an empty double array.
oxArrayPtr decodeArray(const Reader& r, std::uint64_t at, std::uint64_t end, int depth = 0);

// The host array of a whole array element (tag and content).
oxArrayPtr decodeElement(const Bytes& element, bool swapped);

}  // namespace tg::level5
