// SPDX-License-Identifier: BSD-3-Clause
// tempogauge: a tracer of time and memory. The public API for C++ callers.
#pragma once

#include "tempogauge/collect/number_text.h"
#include "tempogauge/collect/paths.h"
#include "tempogauge/collect.h"
#include "tempogauge/analysis.h"
#include "tempogauge/report.h"
#include "tempogauge/store.h"
