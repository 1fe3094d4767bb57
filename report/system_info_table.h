// SPDX-License-Identifier: BSD-3-Clause
// The "System Info" view: the system information record of one run, or of
// both runs side by side. The record's text is escaped for HTML.
#pragma once

#include <string>

#include "collect/system_info_record.h"

// The inner table of hardware and host fields; empty text for a null record.
std::string writeHardwareTable(const TempoGaugingSystemInfo* record);
std::string writeSystemInfoTable(const TempoGaugingSystemInfo* record);
std::string writeSystemInfoComparison(const TempoGaugingSystemInfo& lhs, const TempoGaugingSystemInfo& rhs);
