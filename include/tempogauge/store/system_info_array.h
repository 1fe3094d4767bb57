// SPDX-License-Identifier: BSD-3-Clause
// The system information record as a host array: a 1 by 1 struct with the
// eight fields processorStr, cpuSpeedStr, numCoresStr, totalPhysMemStr,
// operatingSystemStr, ORRERYVersionStr, javaVMVersionStr, installedProductsStr,
// each a character vector.
#pragma once

#include <array>
#include <string_view>

#include "tempogauge/collect/system_info_record.h"
#include "tempogauge/host/ox_array.h"

inline constexpr std::array<std::string_view, 8> kSystemInfoFieldNames{
    "processorStr",       "cpuSpeedStr",      "numCoresStr",      "totalPhysMemStr",
    "operatingSystemStr", "ORRERYVersionStr", "javaVMVersionStr", "installedProductsStr"};

// The struct of this machine's record (getCachedSystemInfo); may raise
// UnexpectedValue when the host answers a query in the wrong form.
oxArrayPtr systemInfoToArray();
// The struct of any record.
oxArrayPtr systemInfoToArray(const TempoGaugingSystemInfo& record);

// Reads fields 0 to 7 of element 0, by position, into the record's eight
// strings; an absent field or one that is not a character vector gives the
// empty string. A null array, or one that is neither a struct nor an object,
// leaves the record as it is.
void systemInfoFromArray(const oxArray* array, TempoGaugingSystemInfo& record);
