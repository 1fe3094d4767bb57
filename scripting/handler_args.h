// SPDX-License-Identifier: BSD-3-Clause
// The checks and conversions that the method handlers of GaugeKit.Tracer
// apply to their host-array inputs, and the way they return a result.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/ox_array.h"
#include "scripting/objsys.h"

namespace tg::scripting {

// A char array that is a vector: refuses the 0-by-0 empty text that
// oxIsCharVector accepts.
bool isCharRow(const oxArray* value);
// The text of a char array; empty for anything else.
std::string toText(const oxArray* value);
// Lower-cased byte by byte.
std::string lowerCase(std::string text);
// The strings of a cell array, walked in linear order; raises
// AddGroupingExpectedString at the first element that is no char vector.
std::vector<std::string> cellToStrings(const oxArray* cell);

// Stores one logical scalar as the method's single output.
void setLogicalOutput(int& nout, objsys::OBSValue* out, bool value);
// Stores one array as the method's single output, replacing any earlier one.
void setOutput(int& nout, objsys::OBSValue* out, oxArrayPtr value);

inline const oxArray* input(const objsys::OBSValue* in, int index) { return in[index].array.get(); }

}  // namespace tg::scripting
