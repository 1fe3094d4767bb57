// SPDX-License-Identifier: BSD-3-Clause
// Part of the public interface: declared in include/tempogauge/collect/module_entry.h.
#pragma once

#include "tempogauge/collect/module_entry.h"
