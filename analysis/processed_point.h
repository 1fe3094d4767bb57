// SPDX-License-Identifier: BSD-3-Clause
// Part of the public interface: declared in include/tempogauge/analysis/processed_point.h.
#pragma once

#include "tempogauge/analysis/processed_point.h"
