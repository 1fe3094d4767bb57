// SPDX-License-Identifier: BSD-3-Clause
// Part of the public interface: declared in include/tempogauge/host/data_file.h.
#pragma once

#include "tempogauge/host/data_file.h"
