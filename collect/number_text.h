// SPDX-License-Identifier: BSD-3-Clause
// Part of the public interface: declared in include/tempogauge/collect/number_text.h.
#pragma once

#include "tempogauge/collect/number_text.h"
