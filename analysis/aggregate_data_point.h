// SPDX-License-Identifier: BSD-3-Clause
// Part of the public interface: declared in include/tempogauge/analysis/aggregate_data_point.h.
#pragma once

#include "tempogauge/analysis/aggregate_data_point.h"
