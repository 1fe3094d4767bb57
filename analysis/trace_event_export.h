// SPDX-License-Identifier: BSD-3-Clause
// Part of the public interface: declared in include/tempogauge/analysis/trace_event_export.h.
#pragma once

#include "tempogauge/analysis/trace_event_export.h"
