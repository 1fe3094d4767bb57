// SPDX-License-Identifier: BSD-3-Clause
// The div elements of the views and the scrollers beside their tables.
#pragma once

#include <string>
#include <string_view>

std::string writeAggregateTabDiv();
// The call tree and detail views hold the filter forms of their tables.
std::string writeCallTreeTabDiv();
std::string writeDetailTabDiv(std::string_view metric, bool isComparison);
// The aggregate scroller and the measuring span; then, unless skipDetail, the
// detail scroller; then, unless isComparison, the call tree scroller.
std::string writeScrollDivs(bool isComparison, bool skipDetail);
