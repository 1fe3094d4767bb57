// Persistence and host information: raw points and system information as host
// arrays, saved trace files, the host bridge, and the errors of the scripting
// interface that these raise.
#pragma once

#include "host/data_file.h"
#include "host/host_bridge.h"
#include "host/ox_array.h"
#include "scripting/errors.h"
#include "store/raw_points_array.h"
#include "store/system_info_array.h"
#include "store/system_info_collection.h"
#include "store/trace_file.h"
