// SPDX-License-Identifier: BSD-3-Clause
// Part of the public interface: declared in include/tempogauge/scripting/errors.h.
#pragma once

#include "tempogauge/scripting/errors.h"
