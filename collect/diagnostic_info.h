// SPDX-License-Identifier: BSD-3-Clause
// Part of the public interface: declared in include/tempogauge/collect/diagnostic_info.h.
#pragma once

#include "tempogauge/collect/diagnostic_info.h"
