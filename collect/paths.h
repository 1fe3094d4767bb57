// SPDX-License-Identifier: BSD-3-Clause
// Part of the public interface: declared in include/tempogauge/collect/paths.h.
#pragma once

#include "tempogauge/collect/paths.h"
