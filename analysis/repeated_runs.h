// SPDX-License-Identifier: BSD-3-Clause
// Part of the public interface: declared in include/tempogauge/analysis/repeated_runs.h.
#pragma once

#include "tempogauge/analysis/repeated_runs.h"
