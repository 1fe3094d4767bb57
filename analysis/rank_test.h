// SPDX-License-Identifier: BSD-3-Clause
// Part of the public interface: declared in include/tempogauge/analysis/rank_test.h.
#pragma once

#include "tempogauge/analysis/rank_test.h"
