// SPDX-License-Identifier: BSD-3-Clause
// Part of the public interface: declared in include/tempogauge/host/ox_array.h.
#pragma once

#include "tempogauge/host/ox_array.h"
