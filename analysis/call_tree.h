// SPDX-License-Identifier: BSD-3-Clause
// Part of the public interface: declared in include/tempogauge/analysis/call_tree.h.
#pragma once

#include "tempogauge/analysis/call_tree.h"
