// SPDX-License-Identifier: BSD-3-Clause
// Part of the public interface: declared in include/tempogauge/store/trace_file.h.
#pragma once

#include "tempogauge/store/trace_file.h"
