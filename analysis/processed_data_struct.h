// SPDX-License-Identifier: BSD-3-Clause
// Part of the public interface: declared in include/tempogauge/analysis/processed_data_struct.h.
#pragma once

#include "tempogauge/analysis/processed_data_struct.h"
