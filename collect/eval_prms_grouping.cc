// SPDX-License-Identifier: BSD-3-Clause
// The grouping of the host's parameter evaluation. Made while the module's
// statics are initialised; this is the initialiser that creates the store, so
// "EvalPrms" is grouping 0.
#include <string>

#include "collect/constants.h"
#include "tempogauge/collect.h"

std::int32_t CwTempoGaugingPoint::_groupingID = tgAddGrouping(std::string(tg::kEvalPrmsGrouping));
