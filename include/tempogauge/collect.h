// SPDX-License-Identifier: BSD-3-Clause
// Trace collection: logging, switches, groupings, clearing, name lookups.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tempogauge/collect/module_entry.h"
#include "tempogauge/collect/raw_point.h"
#include "tempogauge/collect/tempo_gauge.h"

// Logging. Each returns true when a point was stored.
bool tgLogORRERYData(const std::string& grouping, const std::string& phase, bool start);
bool tgLogORRERYData(std::int32_t groupingId, const std::string& phase, bool start);
bool tgLogCWStartupData(const std::string& phase, bool start);
bool tgLogCogwheelData(const std::string& grouping, const std::string& model, const std::string& target,
                       const std::string& phase, bool start);
bool tgLogCogwheelData(std::int32_t groupingId, const std::string& model, const std::string& target,
                       const std::string& phase, bool start);
bool tgLogLoomchartData(const std::string& grouping, const std::string& model, const std::string& target,
                        const std::string& machine, const std::string& chart, const std::string& phase,
                        bool start);
bool tgLogLoomchartData(std::int32_t groupingId, const std::string& model, const std::string& target,
                        const std::string& machine, const std::string& chart, const std::string& phase,
                        bool start);

// Switches and queries.
bool tgIsTracerEnabled(const std::string& grouping);
bool tgIsTracerEnabled(std::int32_t groupingId);
bool tgEnableGlobalLogging(bool flag);
bool tgEnableDetailedMemStats(bool flag);

// Groupings and statistics types.
std::int32_t tgAddGrouping(const std::string& grouping);
std::string tgAddGrouping(const std::string& grouping, const std::vector<std::string>& children);
void tgUpdateGrouping(const std::string& grouping, const std::vector<std::string>& children);
bool tgRemoveGrouping(const std::string& grouping);
std::vector<std::string> tgGetGroupingList(const std::string& grouping);
void tgEnableTracer(const std::string& grouping, bool enable);
void tgSetStatisticsTypeForModel(const std::string& model, const std::string& statisticsType);

// Clearing.
void tgClearRawData();
void tgClearRawData(const std::string& grouping, const std::string& model);
void tgClearRawData(const std::string& grouping, const std::string& model, const std::string& target);
void tgClearRawGroupingData(const std::string& grouping);
void tgClearRawModelData(const std::string& model);

// Reverse lookups of names by id.
std::string tgGetPhaseStr(std::int32_t id);
std::string tgGetStatisticsTypeStr(std::int32_t id);
std::string tgGetModelStr(std::int32_t id);
std::string tgGetTargetStr(std::int32_t id);
std::string tgGetMachineStr(std::int32_t id);
std::string tgGetChartStr(std::int32_t id);

// Module entry points and data.
extern "C" {
extern const char* const tempogauge_version;
extern const char* const tempogauge_build_date;
}
