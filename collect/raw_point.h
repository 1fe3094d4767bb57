// SPDX-License-Identifier: BSD-3-Clause
// Part of the public interface: declared in include/tempogauge/collect/raw_point.h.
#pragma once

#include "tempogauge/collect/raw_point.h"
