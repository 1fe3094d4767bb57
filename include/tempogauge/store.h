// SPDX-License-Identifier: BSD-3-Clause
// Persistence and host information: raw points and system information as host
// arrays, saved trace files, the host bridge, and the errors of the scripting
// interface that these raise.
#pragma once

#include "tempogauge/host/data_file.h"
#include "tempogauge/host/host_bridge.h"
#include "tempogauge/host/ox_array.h"
#include "tempogauge/scripting/errors.h"
#include "tempogauge/store/raw_points_array.h"
#include "tempogauge/store/system_info_array.h"
#include "tempogauge/store/system_info_collection.h"
#include "tempogauge/store/trace_file.h"
