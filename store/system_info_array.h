// SPDX-License-Identifier: BSD-3-Clause
// Part of the public interface: declared in include/tempogauge/store/system_info_array.h.
#pragma once

#include "tempogauge/store/system_info_array.h"
