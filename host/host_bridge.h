// SPDX-License-Identifier: BSD-3-Clause
// Part of the public interface: declared in include/tempogauge/host/host_bridge.h.
#pragma once

#include "tempogauge/host/host_bridge.h"
