// Host arrays as variables of level-5 data files (matio's matvar_t), and back.
#pragma once

#include <memory>
#include <string_view>

#include "host/ox_array.h"

struct matvar_t;

struct MatVariableDeleter {
  void operator()(matvar_t* variable) const;
};
using MatVariablePtr = std::unique_ptr<matvar_t, MatVariableDeleter>;

// A variable named `name` holding `array`. Characters are written as UTF-16,
// logicals as logical uint8, objects as structs, and a null element of a cell
// or struct as an empty double. Null when `array` is null or its class has no
// file form.
MatVariablePtr tgArrayToMatVariable(std::string_view name, const oxArray* array);

// The host array of a variable read from a file. Other integer classes become
// int32 or uint32 when they fit and double otherwise; single becomes double;
// complex values keep their real part. Null for classes without a host form
// (sparse, function handles, opaque objects) and for inconsistent variables.
oxArrayPtr tgMatVariableToArray(const matvar_t* variable);
