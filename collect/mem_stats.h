// SPDX-License-Identifier: BSD-3-Clause
// Part of the public interface: declared in include/tempogauge/collect/mem_stats.h.
#pragma once

#include "tempogauge/collect/mem_stats.h"
