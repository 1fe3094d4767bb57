// SPDX-License-Identifier: BSD-3-Clause
// Part of the public interface: declared in include/tempogauge/collect/grouping_state_array.h.
#pragma once

#include "tempogauge/collect/grouping_state_array.h"
