// SPDX-License-Identifier: BSD-3-Clause
// Part of the public interface: declared in include/tempogauge/scripting/messages.h.
#pragma once

#include "tempogauge/scripting/messages.h"
