// SPDX-License-Identifier: BSD-3-Clause
// The store, with its internal parts complete: the name tables and the index
// of switched groupings. The class is declared in the public headers
// (include/tempogauge/collect/tempo_gauge.h).
#pragma once

#include "collect/grouping_name_index.h"
#include "collect/name_table.h"
#include "tempogauge/collect/tempo_gauge.h"
