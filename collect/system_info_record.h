// SPDX-License-Identifier: BSD-3-Clause
// Part of the public interface: declared in include/tempogauge/collect/system_info_record.h.
#pragma once

#include "tempogauge/collect/system_info_record.h"
