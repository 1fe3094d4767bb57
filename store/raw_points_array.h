// SPDX-License-Identifier: BSD-3-Clause
// Part of the public interface: declared in include/tempogauge/store/raw_points_array.h.
#pragma once

#include "tempogauge/store/raw_points_array.h"
