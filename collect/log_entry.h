// SPDX-License-Identifier: BSD-3-Clause
// The logging exports with their names as views, for hosts that hold the
// names in buffers of their own (the Octave adapter): the same gate and
// points as tgLogORRERYData and its siblings, without a std::string per name.
#pragma once

#include <string_view>

namespace tg::collect {

bool logHostData(std::string_view grouping, std::string_view phase, bool start);
bool logStartupData(std::string_view phase, bool start);
bool logCogwheelData(std::string_view grouping, std::string_view model, std::string_view target,
                     std::string_view phase, bool start);
bool logLoomchartData(std::string_view grouping, std::string_view model, std::string_view target,
                      std::string_view machine, std::string_view chart, std::string_view phase, bool start);

}  // namespace tg::collect
